#include "tests/behaviour/client/setup/new_database.h"

namespace tallyra::client {
namespace {

TEST_F(NewDatabase, TakesWrongWordsForWrongUsage) {
  ASSERT_EQ(run({"init"}), exit_done);
  EXPECT_EQ(run({"grant", "ANNA", "CStokClose", "insert"}), exit_wrong_usage);
  EXPECT_TRUE(says("did you mean 'CStockClose'?")) << client_.all();
  EXPECT_EQ(run({"grant", "ANNA", "*", "aprove"}), exit_wrong_usage);
  EXPECT_TRUE(says("did you mean 'approve'?")) << client_.all();
  EXPECT_EQ(run({"grant", "O'HARA", "*", "all"}), exit_wrong_usage);
  EXPECT_EQ(run({"grant", "ANNA", "*"}), exit_wrong_usage);
}

}  // namespace
}  // namespace tallyra::client
