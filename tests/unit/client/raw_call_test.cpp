#include "client/raw_call.h"

#include "automation/error.h"
#include "tests/unit/client/client_run.h"
#include "tests/unit/client/counting_database.h"

namespace tallyra::client {
namespace {

using automation::Arguments;
using automation::Value;

class LongClose : public Client {
 protected:
  // A close that lasts until its progress has been counted and shown, and then does what the test says.
  void close_when_counted(std::function<Value()> end) {
    database_.set(12, 50);
    script_class("Tallyra.CStockClose", "Insert", [this, end](Arguments) {
      using namespace std::chrono_literals;
      const auto deadline = std::chrono::steady_clock::now() + 20s;
      while (database_.statements() < 3 && std::chrono::steady_clock::now() < deadline)
        std::this_thread::sleep_for(1ms);
      return end();
    });
  }
  static Value last_many_turns(Arguments) {
    std::this_thread::sleep_for(20 * progress_interval);
    return 100.0F;
  }

  CountingDatabase database_;
};

const std::vector<std::string> close_words{"--db",   "DSN=x",      "CStockClose",
                                           "Insert", "2024/01/31", "CLOSEDT=d:2024/01/31"};
const std::string progress_text =
    "\rClosing 2024/01/31: 12 of 50 departments\r" + std::string(40, ' ') + "\r";

TEST_F(LongClose, ShowsProgressOnATerminal) {
  close_when_counted([] { return 100.0F; });
  error_is_terminal_ = true;
  EXPECT_EQ(run(close_words), exit_done);
  EXPECT_EQ(error_.str(), progress_text);
}

TEST_F(LongClose, ShowsProgressElsewhereOnlyWhenAsked) {
  close_when_counted([] { return 100.0F; });
  auto words = close_words;
  words.insert(words.begin(), "--progress");
  EXPECT_EQ(run(words), exit_done);
  EXPECT_EQ(error_.str(), progress_text);
}

TEST_F(LongClose, ShowsNoneWhenForbiddenAndWithoutATerminal) {
  script_class("Tallyra.CStockClose", "Insert", last_many_turns);
  EXPECT_EQ(run(close_words), exit_done);
  error_is_terminal_ = true;
  auto words = close_words;
  words.insert(words.begin(), "--no-progress");
  EXPECT_EQ(run(words), exit_done);
  EXPECT_EQ(error_.str(), "");
  EXPECT_EQ(database_.statements(), 0);
}

TEST_F(LongClose, ClearsTheLineBeforeAnErrorIsTold) {
  close_when_counted([]() -> Value { throw automation::Error(3704, "not open"); });
  error_is_terminal_ = true;
  EXPECT_EQ(run(close_words), exit_failed);
  EXPECT_EQ(error_.str(), progress_text + "tallyra-client: the call failed with error 3704: not open\n");
}

TEST_F(LongClose, IsTheOnlyCallWithProgress) {
  script_class("Tallyra.CStockClose", "Delete", last_many_turns);
  error_is_terminal_ = true;
  EXPECT_EQ(run({"--progress", "--db", "DSN=x", "CStockClose", "Delete", "2024/01/31"}), exit_done);
  EXPECT_EQ(database_.statements(), 0);
}

}  // namespace
}  // namespace tallyra::client
