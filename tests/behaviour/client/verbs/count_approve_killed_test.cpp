#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

#include "tests/behaviour/client/stocktaking/counting_client.h"
#include "tests/support/watched_calls.h"

// An approval of a stocktaking whose process is killed.
namespace tallyra::client {
namespace {

class KilledApproval : public CountingClient {
 protected:
  // Approves in another process, which is killed before that call of the database. Whether it came so far.
  bool killed_before(int call_number) {
    const pid_t child = fork();
    if (child == 0) {
      int calls = 0;
      const behaviour::WatchedCalls watched([&](const std::string&, const std::function<void()>& run_it) {
        if (++calls == call_number) kill(getpid(), SIGKILL);
        run_it();
      });
      _exit(run({"count", "approve", "C1"}));
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFSIGNALED(status);
  }
  std::string state() const { return company_.rows("SELECT STATUSSN FROM STKCHECKHD") + posted(); }
};

TEST_F(KilledApproval, IsThereAsAWholeOrNotAtAll) {
  enter();
  const std::string open = state();
  const std::string approved = "1\nBolt1|-5\nbolt-1|1\n";
  int stored = 0;
  int call_number = 1;
  for (; killed_before(call_number); call_number += 3) {
    SCOPED_TRACE("killed before call " + std::to_string(call_number));
    const bool is_stored = state() == approved;
    EXPECT_TRUE(is_stored || state() == open) << state();
    if (is_stored) {
      ++stored;
      EXPECT_EQ(run({"count", "approve", "C1"}), exit_failed);
      EXPECT_TRUE(says("is approved already")) << client_.all();
    } else {
      EXPECT_EQ(run({"count", "approve", "C1"}), exit_done) << "the lock of the dead process is taken over";
    }
    EXPECT_EQ(state(), approved);
    ASSERT_EQ(run({"count", "undo", "C1"}), exit_done) << client_.all();
    EXPECT_EQ(state(), open);
  }
  EXPECT_GT(call_number, 20) << "an approval is more than that";
  EXPECT_GT(stored, 0);
  EXPECT_EQ(state(), approved) << "the last one was left alone";
}

}  // namespace
}  // namespace tallyra::client
