#include "tests/behaviour/client/stocktaking/counting_client.h"

// A stocktaking of a day that has not come.
namespace tallyra::client {
namespace {

TEST_F(CountingClient, EntersNothingForADayToCome) {
  EXPECT_EQ(
      import("part,counted\nbolt-1,10\n", {"--number", "C1", "--department", "10", "--date", "2024/03/06"}),
      exit_failed);
  EXPECT_TRUE(says("2024/03/06 lies in the future")) << client_.all();
  EXPECT_EQ(stored(), "");
  EXPECT_EQ(
      import("part,counted\nbolt-1,10\n", {"--number", "C1", "--department", "10", "--date", "2024/03/05"}),
      exit_done)
      << client_.all();
}

TEST_F(CountingClient, ApprovesNothingOfADayToComeUnlessForced) {
  enter();
  sql({"UPDATE STKCHECKHD SET CHECKDT='2024-03-06 00:00:00'"});
  EXPECT_EQ(run({"count", "approve", "C1"}), exit_failed);
  EXPECT_TRUE(says("C1 is of 2024/03/06, which lies in the future")) << client_.all();
  EXPECT_EQ(posted(), "");
  EXPECT_EQ(run({"count", "approve", "C1", "--force", "future"}), exit_done) << client_.all();
  EXPECT_EQ(run({"log", "--csv"}), exit_done);
  EXPECT_TRUE(says("forced: future")) << client_.all();
}

}  // namespace
}  // namespace tallyra::client
