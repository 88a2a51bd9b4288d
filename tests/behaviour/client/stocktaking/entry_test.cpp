#include "client/stocktaking/entry.h"

#include <csignal>

#include "tests/behaviour/client/stocktaking/counting_client.h"
#include "tests/support/watched_calls.h"

namespace tallyra::client {
namespace {

TEST_F(CountingClient, LeavesNothingOfAnImportThatFailsInTheMiddle) {
  company_.refuse("FULL_UP", "INSERT", "STKCHECKDT", "NEW.PARTNO='Bolt1'", "full up");
  EXPECT_EQ(import("part,counted\nbolt-1,1\nBolt1,1\n", on_department_10), exit_failed);
  EXPECT_TRUE(says("line 3, part Bolt1: error") && says("nothing of C1 is left")) << client_.error();
  EXPECT_EQ(stored(), "");
}

TEST_F(CountingClient, LeavesNothingOfAnImportThatIsInterrupted) {
  {
    bool raised = false;
    const behaviour::WatchedCalls watched([&](const std::string& call, const std::function<void()>& run_it) {
      run_it();
      if (!raised && call.find("Into STKCHECKDT") != std::string::npos) raised = std::raise(SIGINT) == 0;
    });
    EXPECT_EQ(import("part,counted\nbolt-1,1\nBolt1,1\n", on_department_10), exit_interrupted);
  }
  EXPECT_TRUE(says("interrupted") && says("nothing of C1 is left")) << client_.error();
  EXPECT_EQ(stored(), "");
}

TEST_F(CountingClient, TellsWhatIsLeftOfAnImportThatCannotBeUndone) {
  company_.refuse("FULL_UP", "INSERT", "STKCHECKDT", "NEW.PARTNO='Bolt1'", "full up");
  company_.refuse("KEPT", "DELETE", "STKCHECKHD", "", "kept");
  EXPECT_EQ(import("part,counted\nbolt-1,1\nBolt1,1\n", on_department_10), exit_failed);
  EXPECT_TRUE(says("C1 is left with 1 lines") && says("call CCheckHead Delete C1")) << client_.error();
}

}  // namespace
}  // namespace tallyra::client
