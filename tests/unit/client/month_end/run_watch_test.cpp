#include "client/month_end/run_watch.h"

#include <gtest/gtest.h>

#include <atomic>
#include <csignal>
#include <sstream>

#include "client/month_end/interruption.h"

namespace tallyra::client {
namespace {

using std::chrono::seconds;

ClosePlan plan() {
  return {{{{"10", "Store"}, 100}, {{"20", "Assembly"}, 50}}, 50};
}

TEST(ProgressOfAClose, TellsShareDepartmentsLinesAndTimes) {
  const std::string day = "2024/01/31";
  EXPECT_EQ(progress_text(plan(), day, 0, seconds(0)),
            "Closing 2024/01/31: 0 %, 0 of 2 departments, 0 of 200 lines, 0:00");
  EXPECT_EQ(progress_text(plan(), day, 120, seconds(60)),
            "Closing 2024/01/31: 60 %, 1 of 2 departments, 120 of 200 lines, 1:00, about 0:40 left");
  EXPECT_EQ(progress_text(plan(), day, 175, seconds(5)),
            "Closing 2024/01/31: 87 %, the company, 175 of 200 lines, 0:05, about 0:00 left");
  EXPECT_EQ(progress_text({}, day, 3, seconds(0)),
            "Closing 2024/01/31: 100 %, the company, 1 of 1 lines, 0:00");
}

class Watched : public testing::Test {
 protected:
  // Watches until it has looked so many times.
  std::string watch(bool show, int looks) {
    std::ostringstream out;
    std::ostringstream error;
    Console console{out, error, true, 40, std::chrono::milliseconds(1)};
    std::atomic<int> looked{0};
    {
      const RunWatch watch(
          {.plan = plan(),
           .day = "2024/01/31",
           .show_progress = show,
           .make_counter = [&] { return [&] { return static_cast<std::size_t>(++looked); }; },
           .would_leave = "leaves nothing"},
          console);
      while (looked < looks) std::this_thread::yield();
    }
    return error.str();
  }
};

TEST_F(Watched, RedrawsOneLineAndClearsItAtTheEnd) {
  const std::string drawn = watch(true, 3);
  EXPECT_TRUE(drawn.starts_with("\rClosing 2024/01/31: 0 %, 0 of 2 departm\r")) << drawn;
  EXPECT_TRUE(drawn.ends_with("\r" + std::string(39, ' ') + "\r")) << drawn;
  EXPECT_EQ(drawn.find('\n'), std::string::npos);
}

#ifndef _WIN32  // there a signal of the language is no event of the console
TEST_F(Watched, TellsTheFirstInterruptionOnce) {
  const Interruptions interruptions;
  std::raise(SIGINT);
  EXPECT_EQ(Interruptions::count(), 1);
  const std::string drawn = watch(true, 3);
  const std::string text =
      "The close goes on. Interrupted once more it ends after the row that it is at, and leaves nothing.\n";
  ASSERT_NE(drawn.find(text), std::string::npos) << drawn;
  EXPECT_EQ(drawn.find(text, drawn.find(text) + 1), std::string::npos) << drawn;
}

// Knows, for another thread, that something was written and flushed.
class NoticingBuffer : public std::stringbuf {
 public:
  bool flushed() const { return flushed_; }

 protected:
  int sync() override {
    flushed_ = true;
    return 0;
  }

 private:
  std::atomic<bool> flushed_{false};
};

// Not with the next line of progress, which is an hour off.
TEST(RunWatch, AnswersTheFirstInterruptionAtOnce) {
  const Interruptions interruptions;
  std::ostringstream out;
  NoticingBuffer written;
  std::ostream error(&written);
  Console console{out, error, true, 40, std::chrono::hours(1)};
  std::raise(SIGINT);
  {
    const RunWatch watch({.plan = plan(),
                          .day = "2024/01/31",
                          .show_progress = false,
                          .make_counter = nullptr,
                          .would_leave = "leaves nothing"},
                         console);
    while (!written.flushed()) std::this_thread::yield();
  }
  EXPECT_NE(written.str().find("The close goes on."), std::string::npos);
}
#endif

}  // namespace
}  // namespace tallyra::client
