#include "client/month_end/verification.h"

#include "tests/behaviour/client/month_end/tampered_close.h"

// A close that somebody has tampered with.
namespace tallyra::client {
namespace {

TEST_F(TamperedClose, HasAChangedQuantity) {
  sql({"UPDATE STKTRANDT SET QTY=QTY+0.25 WHERE PARTNO='frame' AND " + of_department("20")});
  EXPECT_EQ(verify(), exit_failed);
  EXPECT_TRUE(says("\ndiffers,20,027CLOSE00000002,frame,3.25,3,0.25\n")) << client_.all();
  EXPECT_TRUE(says("\ndiffers,company,")) << client_.all();
}

TEST_F(TamperedClose, HasAMissingLine) {
  sql({"DELETE FROM STKTRANDT WHERE PARTNO='frame' AND " + of_department("20")});
  EXPECT_EQ(verify(), exit_failed);
  EXPECT_TRUE(says("\nmissing,20,027CLOSE00000002,frame,0,3,-3\n")) << client_.all();
  EXPECT_TRUE(says("\nsurplus,company,")) << client_.all();
}

TEST_F(TamperedClose, HasADoubledLine) {
  sql({"INSERT INTO STKTRANDT SELECT * FROM STKTRANDT WHERE PARTNO='frame' AND " + of_department("20")});
  EXPECT_EQ(verify(), exit_failed);
  EXPECT_TRUE(says("\ndoubled,20,027CLOSE00000002,frame,6,3,3\n")) << client_.all();
}

TEST_F(TamperedClose, HasALineTooMany) {
  sql(
      {"INSERT INTO STKTRANDT(TRANNO,SN,PARTNO,QTY) SELECT TRANNO,0,'ghost',1 FROM STKTRANHD WHERE "
       "TRANTYPE='STK027CLOSE' AND DEPTNOFR='20'"});
  EXPECT_EQ(verify(), exit_failed);
  EXPECT_TRUE(says("\nsurplus,20,027CLOSE00000002,ghost,1,0,1\n")) << client_.all();
}

TEST_F(TamperedClose, HasASecondDocumentOfADepartment) {
  sql(
      {"INSERT INTO STKTRANHD(TRANNO,TRANTYPE,TRANDT,DEPTNOFR,STATUSSN) "
       "VALUES('X','STK027CLOSE','2024-02-01 00:00:00','20 ',0)"});
  EXPECT_EQ(verify(), exit_failed);
  EXPECT_TRUE(says("\nsecond document,20,\"027CLOSE00000002, X\",,,,\n")) << client_.all();
}

TEST_F(TamperedClose, HasNoDocumentOfADepartment) {
  sql({"DELETE FROM STKTRANDT WHERE " + of_department("20"),
       "DELETE FROM STKTRANHD WHERE TRANTYPE='STK027CLOSE' AND DEPTNOFR='20'"});
  EXPECT_EQ(verify(), exit_failed);
  EXPECT_TRUE(says("\nno document,20,,,,,\n")) << client_.all();
}

TEST_F(TamperedClose, TellsLinesThatWereEnteredLaterIntoAnEarlierDocument) {
  sql(
      {"INSERT INTO STKTRANDT(TRANNO,SN,PARTNO,QTY,UPRICE,ADDDT) VALUES('R1',8,'bolt-1',2,1,'2024-03-06 "
       "10:00:00')"});
  EXPECT_EQ(verify(), exit_done) << client_.all();
  EXPECT_TRUE(says("\nentered after the close,10,027CLOSE00000001,bolt-1,9,11,-2\n")) << client_.all();
}

// Whoever closed without this program has left no moment in the record, but a day in the documents.
TEST_F(TamperedClose, KnowsTheDayOfACloseWithoutItsMoment) {
  sql({"UPDATE STKCLOSEHD SET ADDDT=NULL",
       "INSERT INTO STKTRANDT(TRANNO,SN,PARTNO,QTY,UPRICE,ADDDT) VALUES('R1',8,'bolt-1',2,1,'2024-03-06 "
       "00:00:00')"});
  EXPECT_EQ(verify(), exit_done) << client_.all();
  sql({"UPDATE STKTRANDT SET ADDDT='2024-03-05 23:00:00' WHERE SN=8"});
  EXPECT_EQ(verify(), exit_failed) << client_.all();
}

// Large movements that cancel each other leave rounding behind, whose size is theirs and not that of the sum.
class CloseOfLargeMovements : public ClosingClient {
 protected:
  CloseOfLargeMovements() {
    std::string lines;
    for (const char* quantity : {"98765432109.7", "0.3", "-98765432109.7", "-0.1", "-0.2"})
      lines += std::string(lines.empty() ? "" : ",") + "('R1',9,'bolt-1'," + quantity + ")";
    sql({"DELETE FROM STKTRANDT WHERE PARTNO='bolt-1'",
         "INSERT INTO STKTRANDT(TRANNO,SN,PARTNO,QTY) VALUES" + lines});
    EXPECT_EQ(run({"close", "2024/01/31"}), exit_done) << client_.all();
  }
  void write(const char* quantity) const {
    sql({std::string("UPDATE STKTRANDT SET QTY=") + quantity +
         " WHERE PARTNO='bolt-1' AND TRANNO IN (SELECT TRANNO FROM STKTRANHD WHERE "
         "TRANDT='2024-02-01 00:00:00')"});
  }
};

TEST_F(CloseOfLargeMovements, IsRightWhateverRoundingTheSumsLeave) {
  // In one order of the lines that is their sum, in another one it is 0.
  for (const char* sum : {"3.0517578124833467E-6", "0"}) {
    write(sum);
    EXPECT_EQ(run({"verify", "2024/01/31", "--csv"}), exit_done) << client_.all();
  }
  EXPECT_EQ(client_.out(), "what,department,document,part,written,expected,difference\n");
}

TEST_F(CloseOfLargeMovements, ShowsNoRoundingAsAFigure) {
  write("0.001");
  EXPECT_EQ(run({"verify", "2024/01/31", "--csv"}), exit_failed) << client_.all();
  EXPECT_TRUE(says("\ndiffers,10,027CLOSE00000001,bolt-1,0.001,0,0.001\n")) << client_.all();
  sql({"DELETE FROM STKTRANDT WHERE TRANNO='R1' AND PARTNO='bolt-1'",
       "INSERT INTO STKTRANDT(TRANNO,SN,PARTNO,QTY) VALUES('R1',9,'bolt-1',1234567.89)"});
  write("1234567.8901");
  EXPECT_EQ(run({"verify", "2024/01/31", "--json"}), exit_failed) << client_.all();
  EXPECT_TRUE(says("\"difference\": 0.0001\n")) << client_.all();
}

TEST_F(TamperedClose, StandsOnTheOneBeforeItWhateverTheStateOfThat) {
  ASSERT_EQ(run({"approve", "2024/01/31"}), exit_done);
  ASSERT_EQ(run({"close", "2024/02/29"}), exit_done) << client_.all();
  sql({"UPDATE STKTRANHD SET STATUSSN=0 WHERE TRANDT='2024-02-01 00:00:00' AND TRANTYPE='STK027CLOSE'"});
  EXPECT_EQ(run({"verify", "2024/02/29"}), exit_done) << client_.all();
}

}  // namespace
}  // namespace tallyra::client
