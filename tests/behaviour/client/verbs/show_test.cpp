#include "tests/behaviour/client/month_end/closing_client.h"

namespace tallyra::client {
namespace {

TEST_F(ClosingClient, ShowsADocumentWithItsLines) {
  ASSERT_EQ(run({"show", "R1"}), exit_done) << client_.all();
  EXPECT_TRUE(says("TRANTYPE  STK010POREV")) << client_.out();
  EXPECT_FALSE(says("NOTES   ")) << "what is not there is not shown";
  EXPECT_TRUE(says("3  螺丝    螺丝           7")) << client_.out();
  EXPECT_TRUE(says("3 lines, quantity 21, value 43.5.")) << client_.error();
  EXPECT_EQ(run({"show", "nothing"}), exit_failed);
  EXPECT_TRUE(says("there is no document, no stocktaking and no close 'nothing'"));
}

TEST_F(ClosingClient, ShowsAStocktakingWithWhatItPosted) {
  sql({"INSERT INTO STKCHECKHD(CHECKNO,CHECKDT,DEPTNO) VALUES('CK1','2024-02-10 00:00:00','10')",
       "INSERT INTO STKCHECKDT(CHECKNO,PARTNO,QTY) VALUES('CK1','frame',2)",
       "INSERT INTO STKTRANHD(TRANNO,TRANTYPE,REFERENCE,TRANDT,STATUSSN) "
       "VALUES('P9','STKCHECKISS','CK1','2024-02-10 00:00:00',1)"});
  ASSERT_EQ(run({"show", "CK1", "--csv"}), exit_done) << client_.all();
  EXPECT_TRUE(says("\nframe,frame,2,,,\n")) << client_.out();
  EXPECT_TRUE(says("\nP9,2024/02/10,1\n"));
}

TEST_F(ClosingClient, ShowsACloseWithItsDocuments) {
  ASSERT_EQ(run({"close", "2024/01/31"}), exit_done) << client_.all();
  ASSERT_EQ(run({"show", "2024/01/31"}), exit_done) << client_.all();
  EXPECT_TRUE(says("027CLOSE00000001")) << client_.out();
  EXPECT_EQ(run({"show", "2024/02/29"}), exit_failed);
}

}  // namespace
}  // namespace tallyra::client
