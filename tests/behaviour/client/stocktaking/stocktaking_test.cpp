#include "client/stocktaking/stocktaking.h"

#include "tests/behaviour/client/stocktaking/counting_client.h"

namespace tallyra::client {
namespace {

TEST_F(CountingClient, ApprovesOnlyWhatIsThere) {
  EXPECT_EQ(run({"count", "approve", "C9"}), exit_failed);
  EXPECT_TRUE(says("no such row: there is no stocktaking C9"));
  EXPECT_EQ(run({"count", "undo", "C9"}), exit_failed);
  EXPECT_EQ(run({"count", "approve", "C'1"}), exit_wrong_usage);
  enter();
  sql({"UPDATE STKCHECKHD SET DEPTNO='99'"});
  EXPECT_EQ(run({"count", "approve", "C1"}), exit_failed);
  EXPECT_TRUE(says("there is no department 99"));
}

TEST_F(CountingClient, LeavesAClosedMonthAlone) {
  enter();
  close_and_approve("2024/01/31");
  EXPECT_EQ(run({"count", "approve", "C1"}), exit_failed);
  EXPECT_TRUE(says("which the close of 2024/01/31 covers"));
  EXPECT_EQ(posted(), "");
}

}  // namespace
}  // namespace tallyra::client
