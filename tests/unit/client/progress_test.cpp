#include "client/progress.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <sstream>

#include "tests/unit/client/counting_database.h"

namespace tallyra::client {
namespace {

using namespace std::chrono_literals;

class Progress : public testing::Test {
 protected:
  Progress() { settings_.interval = 2ms; }

  std::unique_ptr<CloseProgress> start() { return std::make_unique<CloseProgress>(settings_, stream_); }

  // Waits until that many further statements have run: what the first of them counted is on the line then.
  void wait_for_statements(int count) {
    const int wanted = database_.statements() + count;
    const auto deadline = std::chrono::steady_clock::now() + 20s;
    while (database_.statements() < wanted) {
      ASSERT_LT(std::chrono::steady_clock::now(), deadline) << "the counting thread has stopped";
      std::this_thread::sleep_for(1ms);
    }
  }

  CountingDatabase database_;
  std::ostringstream stream_;
  CloseProgressSettings settings_{.connection_string = "DSN=x", .close_date = "2024/01/31"};
};

const std::string twelve_of_fifty = "\rClosing 2024/01/31: 12 of 50 departments";

TEST_F(Progress, RedrawsOneLineWhenTheNumbersChangeAndClearsItAtTheEnd) {
  database_.set(9, 50);
  auto progress = start();
  wait_for_statements(4);
  database_.set(12, 50);
  wait_for_statements(3);
  database_.set(9, 50);
  wait_for_statements(3);
  progress.reset();
  const std::string nine_of_fifty = "\rClosing 2024/01/31: 9 of 50 departments";
  EXPECT_EQ(stream_.str(), nine_of_fifty + twelve_of_fifty + nine_of_fifty + " " + "\r" +
                               std::string(nine_of_fifty.size() - 1, ' ') + "\r");
}

TEST_F(Progress, CountsOverOneConnectionOfItsOwnOnAThreadOfItsOwn) {
  database_.set(12, 50);
  auto progress = start();
  wait_for_statements(4);
  progress.reset();
  auto calls = database_.calls();
  ASSERT_GE(calls.size(), 7U);
  calls.resize(7);
  const std::string closed =
      ".Open Select Count(*) As N From STKTRANHD Where TRANTYPE='STK027CLOSE' And STATUSSN=0 | C1 0 1 -1";
  EXPECT_EQ(calls, (std::vector<std::string>{
                       "C1.Open 'DSN=x' '' '' -1", "R1.Open Select Count(*) As N From DEPARTS | C1 0 1 -1",
                       "R1.Close", "R2" + closed, "R2.Close", "R3" + closed, "R3.Close"}));
  EXPECT_NE(database_.caller(), std::this_thread::get_id());
}

TEST_F(Progress, GoesOnAfterFailuresWithANewConnection) {
  database_.set(9, 50);
  auto progress = start();
  wait_for_statements(4);
  database_.fail_next(1);
  database_.set(12, 50);
  wait_for_statements(4);
  progress.reset();
  EXPECT_NE(stream_.str().find(twelve_of_fifty), std::string::npos) << stream_.str();
  const auto calls = database_.calls();
  EXPECT_EQ(std::ranges::count(calls, "C1.Open 'DSN=x' '' '' -1"), 1);
  EXPECT_EQ(std::ranges::count(calls, "C2.Open 'DSN=x' '' '' -1"), 1);
}

TEST_F(Progress, SaysNothingWhenThereIsNoConnection) {
  database_.refuse_connections();
  auto progress = start();
  while (database_.calls().size() < 2) std::this_thread::sleep_for(1ms);
  progress.reset();
  EXPECT_EQ(database_.calls()[1], "C2.Open 'DSN=x' '' '' -1");
  EXPECT_EQ(stream_.str(), "");
  EXPECT_EQ(database_.statements(), 0);
}

TEST_F(Progress, EndsAtOnceAndAsksNothingWhenTheCloseIsShort) {
  settings_.interval = 10min;
  auto progress = start();
  const auto begin = std::chrono::steady_clock::now();
  progress.reset();
  EXPECT_LT(std::chrono::steady_clock::now() - begin, 10s);
  EXPECT_TRUE(database_.calls().empty());
  EXPECT_EQ(stream_.str(), "");
}

TEST_F(Progress, DoesNotSpin) {
  settings_.interval = 50ms;
  const auto begin = std::chrono::steady_clock::now();
  auto progress = start();
  wait_for_statements(4);
  progress.reset();
  // One count per interval, and the number of departments once.
  const auto intervals = (std::chrono::steady_clock::now() - begin) / settings_.interval;
  EXPECT_LE(database_.statements(), 1 + intervals);
}

TEST_F(Progress, StaysShortOfTheEdgeOfTheTerminal) {
  database_.set(12, 50);
  settings_.width = 20;
  auto progress = start();
  wait_for_statements(4);
  progress.reset();
  EXPECT_EQ(stream_.str(), "\rClosing 2024/01/31:\r" + std::string(19, ' ') + "\r");
}

}  // namespace
}  // namespace tallyra::client
