#include "client/month_end/leftovers.h"

#include "tests/behaviour/client/month_end/unfinished_close.h"

namespace tallyra::client {
namespace {

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

}  // namespace
}  // namespace tallyra::client
