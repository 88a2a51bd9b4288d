#include <csignal>

#include "tests/behaviour/client/month_end/closing_client.h"
#include "tests/support/watched_calls.h"

// A close that is interrupted by Ctrl-C or TERM.
namespace tallyra::client {
namespace {

class InterruptedClose : public ClosingClient {
 protected:
  // Closes January and raises the signal so many times while it is at the line of that number.
  ExitStatus close_with(int signal_number, int times, int at_line) {
    int line = 0;
    const behaviour::WatchedCalls watched([&](const std::string& call, const std::function<void()>& run_it) {
      run_it();
      if (call.find("Into STKTRANDT") == std::string::npos &&
          call.find("INTO STKTRANDT") == std::string::npos)
        return;
      if (++line == at_line)
        for (int i = 0; i < times; ++i) std::raise(signal_number);
    });
    return run({"close", "2024/01/31"});
  }
};

TEST_F(InterruptedClose, GoesOnAfterTheFirstSignal) {
  for (const int signal_number : {SIGINT, SIGTERM}) {
    EXPECT_EQ(close_with(signal_number, 1, 3), exit_done) << client_.all();
    EXPECT_EQ(run({"reopen", "2024/01/31"}), exit_done) << client_.all();
  }
}

TEST_F(InterruptedClose, EndsAfterTheRowAtTheSecondAndLeavesNothing) {
  ASSERT_EQ(run({"close", "2024/01/31"}), exit_done);
  const std::string departments = company_.department_lines("2024-02-01");
  ASSERT_EQ(run({"reopen", "2024/01/31"}), exit_done);
  const std::string before = company_.everything();
  constexpr int lines = 13;
  for (int at_line = 1; at_line <= lines; ++at_line) {
    SCOPED_TRACE(at_line);
    EXPECT_EQ(close_with(at_line % 2 == 0 ? SIGINT : SIGTERM, 2, at_line), exit_interrupted) << client_.all();
    EXPECT_TRUE(says("2024/01/31 is not closed: interrupted")) << client_.all();
    EXPECT_TRUE(says("nothing of it is left in the database")) << client_.all();
    EXPECT_EQ(company_.everything(), before);
  }
  EXPECT_EQ(company_.rows("SELECT Count(*) FROM TALLYRALOCK"), "0\n");
  EXPECT_EQ(company_.rows("SELECT Count(*) FROM TALLYRAJOURNAL WHERE RESULT='interrupted'"), "13\n");
  EXPECT_EQ(run({"close", "2024/01/31"}), exit_done) << client_.all();
  EXPECT_EQ(company_.department_lines("2024-02-01"), departments);
}

}  // namespace
}  // namespace tallyra::client
