#include <filesystem>
#include <fstream>

#include "client/database/own_tables.h"
#include "client/month_end/guard.h"
#include "client/platform/process.h"
#include "client/refusal.h"
#include "tests/behaviour/client/month_end/closing_client.h"

namespace tallyra::client {
namespace {

TEST_F(ClosingClient, ClosesAMonthAndShowsWhatItHasWritten) {
  EXPECT_EQ(run({"close", "2024/01/31"}), exit_done) << client_.all();
  EXPECT_EQ(client_.out().substr(0, client_.out().find('\n')),
            "department  name      document          lines  quantity  value");
  EXPECT_TRUE(says("\ncompany ")) << client_.all();
  EXPECT_TRUE(says("Closed 2024/01/31 in ")) << client_.all();
  EXPECT_EQ(company_.rows("SELECT CLOSEDT,STATUSSN,MAKEBY FROM STKCLOSEHD"), "2024/01/31|0|ADMIN\n");
  EXPECT_EQ(company_.rows("SELECT Count(*) FROM TALLYRALOCK"), "0\n");
  EXPECT_EQ(run({"log", "--csv"}), exit_done);
  EXPECT_TRUE(says("close,2024/01/31,done,,ADMIN,")) << client_.all();
}

TEST_F(ClosingClient, ValuesQuantitiesWithTheCostsOfTheCompanyDocument) {
  ASSERT_EQ(run({"close", "2024/01/31", "--json"}), exit_done) << client_.all();
  const std::string value = company_.rows(
      "SELECT round(sum(L.QTY*C.UPRICE),2) FROM STKTRANHD H JOIN STKTRANDT L ON L.TRANNO=H.TRANNO JOIN "
      "STKTRANDT C ON "
      "C.PARTNO=L.PARTNO JOIN STKTRANHD A ON A.TRANNO=C.TRANNO AND A.TRANTYPE='STKCLOSEALL' WHERE "
      "H.TRANTYPE='STK027CLOSE' AND H.DEPTNOFR='10'");
  EXPECT_TRUE(says("\"value\": " + value.substr(0, value.find_first_of(".\n")))) << value << client_.all();
}

TEST_F(ClosingClient, RefusesErrorsUnlessTheyAreForced) {
  EXPECT_EQ(run({"close", "2024/01/30"}), exit_failed);
  EXPECT_TRUE(says("2024/01/30 is not closed, because of: not-month-end.")) << client_.all();
  EXPECT_EQ(company_.rows("SELECT Count(*) FROM STKCLOSEHD"), "0\n");
  EXPECT_EQ(run({"close", "2024/01/30", "--force", "not-month-ent"}), exit_wrong_usage);
  EXPECT_TRUE(says("did you mean 'not-month-end'?"));
  EXPECT_EQ(run({"close", "2024/01/30", "--force", "not-month-end"}), exit_done) << client_.all();
  EXPECT_EQ(run({"log", "--csv"}), exit_done);
  EXPECT_TRUE(says("close,2024/01/30,done,forced: not-month-end,ADMIN,")) << client_.all();
}

TEST_F(ClosingClient, AsksAPersonAndRefusesWithoutOne) {
  EXPECT_EQ(client_.run({"close", "2024/01/31"}), exit_failed);
  EXPECT_TRUE(says("Nobody is there to answer")) << client_.all();
  client_.answer("n\n");
  EXPECT_EQ(client_.run({"close", "2024/01/31"}), exit_failed);
  EXPECT_TRUE(says("Close 2024/01/31? 2 departments and the company come to 13 lines. [y/N]"))
      << client_.all();
  EXPECT_EQ(company_.rows("SELECT Count(*) FROM STKCLOSEHD"), "0\n");
  client_.answer("y\nyes\n");
  EXPECT_EQ(client_.run({"close", "2024/01/31"}), exit_done) << client_.all();
}

TEST_F(ClosingClient, TellsWhyTheClassRefuses) {
  ClientProgram nobody({"--db", company_.connection_string(), "--user", "NOBODY", "--yes"});
  EXPECT_EQ(nobody.run({"close", "2024/01/31"}), exit_failed);
  EXPECT_NE(nobody.error().find("2024/01/31 is not closed: error 10000016"), std::string::npos)
      << nobody.all();
  EXPECT_NE(nobody.error().find("nothing of it is left in the database"), std::string::npos) << nobody.all();
}

TEST_F(ClosingClient, CopiesTheDatabaseBeforeAndChecksTheCopy) {
  ASSERT_EQ(run({"close", "2024/01/31", "--backup"}), exit_done) << client_.all();
  EXPECT_TRUE(says(" rows, equal to the database.")) << client_.all();
  const std::string copy = company_.file().string() + ".before-close-20240305093000";
  ASSERT_TRUE(std::filesystem::exists(copy));
  const Reader reader("DRIVER={SQLite3};Database=" + copy, "MSACCESS");
  EXPECT_EQ(reader.count("Select Count(*) As N From STKCLOSEHD"), 0);
  EXPECT_GT(reader.count("Select Count(*) As N From STKTRANDT"), 0);
}

TEST_F(ClosingClient, LeavesACopyAloneThatIsThereAlready) {
  const std::string copy = company_.file().string() + ".before-close-20240305093000";
  std::ofstream(copy) << "another";
  EXPECT_EQ(run({"close", "2024/01/31", "--backup"}), exit_failed);
  EXPECT_TRUE(says("is there already; nothing was done")) << client_.all();
  EXPECT_EQ(std::filesystem::file_size(copy), 7U);
  EXPECT_EQ(company_.rows("SELECT Count(*) FROM STKCLOSEHD"), "0\n");
  EXPECT_EQ(company_.rows("SELECT Count(*) FROM TALLYRALOCK"), "0\n");
}

TEST_F(ClosingClient, ApprovesOnlyACloseThatExists) {
  ASSERT_EQ(run({"close", "2024/01/31"}), exit_done);
  EXPECT_EQ(run({"approve", "2024/03/31"}), exit_failed);
  EXPECT_TRUE(
      says("there is no close of 2024/03/31; the latest is that of 2024/01/31. Nothing was approved"));
  EXPECT_EQ(company_.rows("SELECT STATUSSN FROM STKCLOSEHD"), "0\n");
  EXPECT_EQ(run({"approve", "2024/01/31"}), exit_done) << client_.all();
  EXPECT_EQ(company_.rows("SELECT STATUSSN,STATUSBY FROM STKCLOSEHD"), "1|ADMIN\n");
  EXPECT_EQ(company_.rows("SELECT Count(*) FROM STKTRANHD WHERE STATUSSN=0 AND TRANTYPE LIKE '%CLOSE%'"),
            "0\n");
}

TEST_F(ClosingClient, AsksBeforeItApprovesEarlierClosesToo) {
  ASSERT_EQ(run({"close", "2024/01/31"}), exit_done);
  sql({"UPDATE STKTRANHD SET STATUSSN=1"});
  ASSERT_EQ(run({"close", "2024/02/29", "--force", "previous-unapproved"}), exit_done) << client_.all();
  client_.answer("n\n");
  EXPECT_EQ(client_.run({"approve", "2024/02/29"}), exit_failed);
  EXPECT_TRUE(says("approves the earlier closes of 2024/01/31 as well")) << client_.all();
  EXPECT_EQ(company_.rows("SELECT sum(STATUSSN) FROM STKCLOSEHD"), "0\n");
}

TEST_F(ClosingClient, ReopensTheLatestCloseAlone) {
  close_and_approve("2024/01/31");
  close_and_approve("2024/02/29");
  const std::string before = company_.everything();
  EXPECT_EQ(run({"reopen", "2024/01/31"}), exit_failed);
  EXPECT_TRUE(says("there are later closes, up to that of 2024/02/29")) << client_.all();
  EXPECT_EQ(run({"reopen", "2024/03/31"}), exit_failed);
  EXPECT_EQ(company_.everything(), before);
  EXPECT_EQ(run({"reopen", "2024/02/29"}), exit_done) << client_.all();
  EXPECT_EQ(company_.rows("SELECT Count(*) FROM STKCLOSEHD"), "1\n");
  EXPECT_EQ(company_.department_lines("2024-03-01"), "");
  EXPECT_EQ(run({"reopen", "2024/01/31", "--force", "latest"}), exit_wrong_usage);
}

TEST_F(ClosingClient, ShowsTheStateOfEveryClose) {
  close_and_approve("2024/01/31");
  ASSERT_EQ(run({"close", "2024/02/29"}), exit_done) << client_.all();
  EXPECT_EQ(run({"status", "--csv"}), exit_done);
  EXPECT_TRUE(says("2024/01/31,approved,3,ADMIN,2024/03/05 09:30:00\n2024/02/29,not approved,3,ADMIN,"))
      << client_.all();
}

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

class LockedCompany : public ClosingClient {
 protected:
  void lock(const std::string& host, const ProcessIdentity& process) {
    const Reader reader(company_.connection_string(), "MSACCESS");
    make_own_tables(reader);
    sql(
        {"INSERT INTO TALLYRALOCK(LOCKKEY,WORKTEXT,OWNERID,OSUSER,HOSTNAME,PROCESSID,PROCESSSTART,SINCE) "
         "VALUES('CLOSE','close 2024/01/31','ANNA','anna','" +
         host + "'," + std::to_string(process.id) + ",'" + process.started + "','2024/03/05 09:00:00')"});
  }
  std::string closes() const { return company_.rows("SELECT Count(*) FROM STKCLOSEHD"); }
};

TEST_F(LockedCompany, IsLeftToWhoHoldsTheLock) {
  lock(host_name(), {1, ""});
  EXPECT_EQ(run({"close", "2024/01/31", "--break-lock"}), exit_locked);
  EXPECT_TRUE(
      says("ANNA (login anna, host " + host_name() + ", process 1) is at work on close 2024/01/31 since "))
      << client_.all();
  EXPECT_EQ(run({"reopen", "2024/01/31"}), exit_failed) << "nothing to reopen";
  EXPECT_EQ(closes(), "0\n");
  EXPECT_EQ(run({"status"}), exit_done);
  EXPECT_TRUE(says("30 minutes ago")) << client_.all();
}

TEST_F(LockedCompany, IsTakenOverFromADeadProcess) {
  lock(host_name(), {999999999, "1"});
  EXPECT_EQ(run({"close", "2024/01/31"}), exit_done) << client_.all();
  EXPECT_TRUE(says("but that process has ended; its lock is taken over")) << client_.all();
  EXPECT_EQ(closes(), "1\n");
}

TEST_F(LockedCompany, IsTakenFromAnotherHostOnlyByBreakingTheLock) {
  lock("elsewhere", {17, "1"});
  EXPECT_EQ(run({"close", "2024/01/31", "--force", "another-closer"}), exit_locked);
  EXPECT_TRUE(says("--break-lock takes its lock")) << client_.all();
  EXPECT_EQ(closes(), "0\n");
  EXPECT_EQ(run({"close", "2024/01/31", "--break-lock"}), exit_done) << client_.all();
  EXPECT_EQ(run({"log", "--csv", "--action", "force"}), exit_done);
  EXPECT_TRUE(says("lock broken: ANNA")) << client_.all();
}

}  // namespace
}  // namespace tallyra::client
