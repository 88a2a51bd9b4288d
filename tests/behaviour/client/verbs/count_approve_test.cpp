#include "client/database/own_tables.h"
#include "tests/behaviour/client/stocktaking/counting_client.h"

namespace tallyra::client {
namespace {

TEST_F(CountingClient, SaysThatAnApprovalIsStored) {
  enter();
  ASSERT_EQ(run({"count", "approve", "C1", "--csv"}), exit_done) << client_.all();
  EXPECT_EQ(client_.out(), "part,book,counted,posted\nBOLT-1,2,2,\nBolt1,8,3,-5\nbolt-1,9,10,1\n");
  EXPECT_TRUE(says("Approved C1; read back, it is stored, with 2 parts posted"));
  EXPECT_EQ(posted(), differences);
  EXPECT_EQ(company_.rows("SELECT STATUSSN,STATUSBY FROM STKCHECKHD"), "1|ADMIN\n");
  EXPECT_EQ(company_.rows("SELECT count(*) FROM TALLYRALOCK"), "0\n");
  EXPECT_EQ(company_.rows("SELECT ACTION,SUBJECT,RESULT FROM TALLYRAJOURNAL"),
            "count import|C1|done\ncount approve|C1|done\n");
}

TEST_F(CountingClient, ApprovesAStocktakingOnce) {
  enter();
  ASSERT_EQ(run({"count", "approve", "C1"}), exit_done);
  EXPECT_EQ(run({"count", "approve", "C1"}), exit_failed);
  EXPECT_TRUE(says("is approved already"));
  EXPECT_EQ(posted(), differences);
  ASSERT_EQ(run({"count", "approve", "C1", "--force", "again"}), exit_done) << client_.all();
  EXPECT_EQ(company_.rows("SELECT count(*) FROM STKTRANHD WHERE TRANTYPE='STKCHECKISS'"), "1\n")
      << "the first posting has made the book what was counted";
  EXPECT_EQ(run({"count", "approve", "C1", "--force", "agian"}), exit_wrong_usage);
  EXPECT_TRUE(says("did you mean 'again'"));
}

// The trigger takes away the number that was issued.
TEST_F(CountingClient, TakesBackAnApprovalThatWasPostedWithoutANumber) {
  if (!company_.is_sqlite()) GTEST_SKIP() << "a trigger of SQLite's";
  enter();
  sql(
      {"CREATE TRIGGER NO_NUMBER AFTER INSERT ON STKTRANHD WHEN NEW.TRANNO<>'' "
       "BEGIN UPDATE STKTRANHD SET TRANNO='' WHERE TRANNO=NEW.TRANNO; END"});
  EXPECT_EQ(run({"count", "approve", "C1"}), exit_failed);
  EXPECT_TRUE(says("The approval was taken back")) << client_.error();
  EXPECT_EQ(company_.rows("SELECT count(*) FROM STKTRANHD WHERE TRANTYPE='STKCHECKISS'"), "0\n");
  EXPECT_EQ(company_.rows("SELECT STATUSSN FROM STKCHECKHD"), "0\n");
}

TEST_F(CountingClient, ApprovesNothingWhileAnotherPostingHasNoNumber) {
  enter();
  sql({"INSERT INTO STKTRANHD(TRANNO,TRANTYPE,REFERENCE) VALUES('','STKCHECKISS','C0')"});
  EXPECT_EQ(run({"count", "approve", "C1"}), exit_failed);
  EXPECT_TRUE(says("nothing was approved: a posting without a number")) << client_.error();
  EXPECT_EQ(company_.rows("SELECT STATUSSN FROM STKCHECKHD"), "0\n");
}

TEST_F(CountingClient, ApprovesNothingBesideAnUnfinishedClose) {
  enter();
  sql(
      {"INSERT INTO STKTRANHD(TRANNO,TRANTYPE,TRANDT,DEPTNOFR,STATUSSN) "
       "VALUES('X1','STK027CLOSE','2024-02-01 00:00:00','10',0)"});
  EXPECT_EQ(run({"count", "approve", "C1"}), exit_failed);
  EXPECT_TRUE(says("an unfinished close has left 1 document"));
  sql({"DELETE FROM STKTRANHD WHERE TRANNO='X1'",
       "INSERT INTO TALLYRALOCK(LOCKKEY,WORKTEXT,OWNERID,HOSTNAME,PROCESSID,SINCE) "
       "VALUES('CLOSE','close 2024/01/31','ANNA','elsewhere',17,'2024/03/05 09:00:00')"});
  EXPECT_EQ(run({"count", "approve", "C1"}), exit_locked);
  EXPECT_TRUE(says("ANNA") && says("elsewhere")) << client_.error();
  EXPECT_EQ(posted(), "");
}

}  // namespace
}  // namespace tallyra::client
