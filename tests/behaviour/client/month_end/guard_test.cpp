#include "client/month_end/guard.h"

#include "client/refusal.h"
#include "tests/behaviour/client/month_end/unfinished_close.h"

namespace tallyra::client {
namespace {

TEST_F(UnfinishedClose, HoldsUpStocktakingsAndApprovals) {
  EXPECT_THROW(require_no_unfinished_close(reader_), Refusal);
  sql({"INSERT INTO STKCLOSEHD(CLOSEDT,STATUSSN) VALUES('2023-12-31 00:00:00',0)"});
  EXPECT_EQ(run({"approve", "2023/12/31"}), exit_failed);
  EXPECT_TRUE(says("an unfinished close has left 1 document")) << client_.all();
  sql({"DELETE FROM STKTRANHD WHERE TRANTYPE='STK027CLOSE'"});
  EXPECT_NO_THROW(require_no_unfinished_close(reader_));
}

}  // namespace
}  // namespace tallyra::client
