#include "tests/behaviour/client/month_end/tampered_close.h"

namespace tallyra::client {
namespace {

TEST_F(TamperedClose, IsRightAsLongAsNobodyHas) {
  EXPECT_EQ(verify(), exit_done) << client_.all();
  EXPECT_EQ(client_.out(), "what,department,document,part,written,expected,difference\n");
  EXPECT_TRUE(says("is right: 3 documents with 13 lines")) << client_.all();
  EXPECT_EQ(run({"verify", "2024/02/29"}), exit_failed);
  EXPECT_TRUE(says("there is no close of 2024/02/29 to verify"));
}

TEST_F(TamperedClose, TellsWhatWasEnteredAfterTheClose) {
  sql(
      {"INSERT INTO STKTRANHD(TRANNO,TRANTYPE,TRANDT,DEPTNOFR,STATUSSN,ADDDT) "
       "VALUES('LATE','STK010POREV','2024-01-15 00:00:00','10',1,'2024-03-06 10:00:00')",
       "INSERT INTO STKTRANDT(TRANNO,SN,PARTNO,QTY,UPRICE) "
       "VALUES('LATE',1,'bolt-1',2,1),('LATE',2,'frame',1,1)"});
  EXPECT_EQ(verify(), exit_done) << client_.all();
  EXPECT_TRUE(says("\nentered after the close,10,027CLOSE00000001,bolt-1,9,11,-2\n")) << client_.all();
  EXPECT_TRUE(says("\nentered after the close,10,027CLOSE00000001,frame,0,1,-1\n")) << client_.all();
  EXPECT_TRUE(says("was right")) << client_.all();
  sql({"UPDATE STKTRANDT SET QTY=QTY+1 WHERE PARTNO='bolt-1' AND " + of_department("10")});
  EXPECT_EQ(verify(), exit_failed) << "that explains a part of it alone";
}

}  // namespace
}  // namespace tallyra::client
