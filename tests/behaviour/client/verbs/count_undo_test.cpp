#include "tests/behaviour/client/stocktaking/counting_client.h"

namespace tallyra::client {
namespace {

TEST_F(CountingClient, TakesAnApprovalBack) {
  enter();
  EXPECT_EQ(run({"count", "undo", "C1"}), exit_failed);
  EXPECT_TRUE(says("not approved"));
  ASSERT_EQ(run({"count", "approve", "C1"}), exit_done);
  ASSERT_EQ(run({"count", "undo", "C1"}), exit_done) << client_.all();
  EXPECT_EQ(posted(), "");
  EXPECT_EQ(company_.rows("SELECT STATUSSN FROM STKCHECKHD"), "0\n");
  ASSERT_EQ(run({"count", "approve", "C1"}), exit_done);
  EXPECT_EQ(posted(), differences);
}

}  // namespace
}  // namespace tallyra::client
