#include "tests/behaviour/client/month_end/closing_client.h"

// A list that is empty because of a misspelt filter.
namespace tallyra::client {
namespace {

TEST_F(ClosingClient, SaysWhatAFilterMayHaveMisspelt) {
  EXPECT_EQ(run({"list", "CTranHead", "--type", "STK010PORE"}), exit_done);
  EXPECT_TRUE(
      says("There is no such row; 'STK010PORE' is no type that is known; did you mean 'STK010POREV'?"))
      << client_.all();
  EXPECT_EQ(run({"list", "CTranHead", "--department", "999"}), exit_done);
  EXPECT_TRUE(says("There is no such row; there is no department 999.")) << client_.all();
  EXPECT_EQ(run({"list", "CTranHead", "--from", "2023/01/01", "--to", "2023/01/31"}), exit_done);
  EXPECT_TRUE(says("There is no such row.")) << client_.all();
}

TEST_F(ClosingClient, ListsNothingFromADayToAnEarlierOne) {
  EXPECT_EQ(run({"list", "CTranHead", "--from", "2024/03/01", "--to", "2024/01/01"}), exit_wrong_usage);
  EXPECT_TRUE(says("--from 2024/03/01 is later than --to 2024/01/01")) << client_.all();
}

}  // namespace
}  // namespace tallyra::client
