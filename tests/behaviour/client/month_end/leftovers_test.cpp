#include "client/month_end/leftovers.h"

#include "client/month_end/guard.h"
#include "client/refusal.h"
#include "tests/behaviour/client/month_end/closing_client.h"

namespace tallyra::client {
namespace {

class UnfinishedClose : public ClosingClient {
 protected:
  UnfinishedClose() {
    sql(
        {"INSERT INTO STKTRANHD(TRANNO,TRANTYPE,TRANDT,DEPTNOFR,STATUSSN) "
         "VALUES('027CLOSE00000009','STK027CLOSE','2024-02-01 00:00:00','10 ',0)",
         "INSERT INTO STKTRANDT(TRANNO,SN,PARTNO,QTY) VALUES('027CLOSE00000009',0,'frame',5)"});
  }
  const Reader reader_{company_.connection_string(), "MSACCESS"};
};

TEST_F(UnfinishedClose, IsToldAndMendedByTheNextClose) {
  EXPECT_EQ(run({"status"}), exit_done);
  EXPECT_TRUE(says("has left 1 document with 1 line for 2024/01/31. Close 2024/01/31 again"))
      << client_.all();
  EXPECT_EQ(run({"close", "2024/01/31"}), exit_done) << client_.all();
  EXPECT_TRUE(says("warning unfinished-close (1)")) << client_.all();
  EXPECT_EQ(company_.rows("SELECT Count(*) FROM STKTRANHD WHERE TRANNO='027CLOSE00000009'"), "0\n");
}

TEST_F(UnfinishedClose, IsToldWithEveryDateThatItHasLeftDocumentsFor) {
  sql(
      {"INSERT INTO STKTRANHD(TRANNO,TRANTYPE,TRANDT,DEPTNOFR,STATUSSN) "
       "VALUES('027CLOSE00000010','STK027CLOSE','2024-03-01 00:00:00','10 ',0)"});
  EXPECT_EQ(run({"status"}), exit_done);
  EXPECT_TRUE(
      says("has left 2 documents with 1 line for 2024/01/31, 2024/02/29. Close 2024/02/29 again, or delete "
           "that with 'reopen 2024/01/31' and 'reopen 2024/02/29'; approve no stocktaking before."))
      << client_.all();
}

TEST_F(UnfinishedClose, IsMendedByReopening) {
  EXPECT_EQ(run({"reopen", "2024/01/31"}), exit_done) << client_.all();
  EXPECT_EQ(company_.rows("SELECT Count(*) FROM STKTRANHD WHERE TRANTYPE='STK027CLOSE'"), "0\n");
}

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
