#include "client/month_end/lock.h"

#include "client/database/own_tables.h"
#include "tests/behaviour/client/month_end/closing_client.h"

namespace tallyra::client {
namespace {

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
  std::string locks() const { return company_.rows("SELECT Count(*) FROM TALLYRALOCK"); }
  std::string closes() const { return company_.rows("SELECT Count(*) FROM STKCLOSEHD"); }
};

TEST_F(LockedCompany, IsLeftToWhoHoldsTheLock) {
  lock(host_name(), {1, ""});
  EXPECT_EQ(run({"close", "2024/01/31", "--break-lock"}), exit_locked);
  EXPECT_TRUE(
      says("ANNA (login anna, host " + host_name() + ", process 1) is at work on close 2024/01/31 since "))
      << client_.all();
  EXPECT_TRUE(says("; wait until it has ended")) << client_.all();
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
  EXPECT_EQ(run({"log", "--csv", "--action", "take over"}), exit_done);
  EXPECT_TRUE(
      says(",take over,close 2024/01/31,done,\"lock of a process that has ended: ANNA (login anna, host " +
           host_name() + ", process 999999999) is at work on close 2024/01/31 since 2024/03/05 09:00:00\","))
      << client_.out();
}

TEST_F(LockedCompany, IsTakenFromAnotherHostOnlyByBreakingTheLock) {
  lock("elsewhere", {17, "1"});
  EXPECT_EQ(run({"close", "2024/01/31"}), exit_locked);
  EXPECT_TRUE(says("because of: another-closer. ANNA (login anna, host elsewhere, process 17) is at work on"))
      << client_.all();
  EXPECT_TRUE(says("; if that process has ended for certain, --break-lock takes its lock")) << client_.all();
  EXPECT_EQ(run({"close", "2024/01/31", "--force", "another-closer"}), exit_wrong_usage)
      << "who is at work is not forced away";
  EXPECT_EQ(closes(), "0\n");
  EXPECT_EQ(run({"close", "2024/01/31", "--break-lock"}), exit_done) << client_.all();
  EXPECT_EQ(run({"log", "--csv", "--action", "force"}), exit_done);
  EXPECT_TRUE(says("lock broken: ANNA")) << client_.all();
}

// What a close at work has written so far is not left, and nothing is to be mended.
TEST_F(LockedCompany, IsNoUnfinishedOne) {
  lock(host_name(), this_process());
  sql({"UPDATE TALLYRALOCK SET PROCESSID=1,PROCESSSTART=''",
       "INSERT INTO STKTRANHD(TRANNO,TRANTYPE,TRANDT,DEPTNOFR,STATUSSN) "
       "VALUES('027CLOSE00000009','STK027CLOSE','2024-02-01 00:00:00','10 ',0)"});
  EXPECT_EQ(run({"status"}), exit_done);
  EXPECT_TRUE(says("Written so far by the close at work")) << client_.all();
  EXPECT_FALSE(says("did not come to its end")) << client_.all();
  EXPECT_EQ(run({"close", "2024/01/31"}), exit_locked);
  EXPECT_FALSE(says("unfinished-close")) << client_.all();
  EXPECT_TRUE(says("; wait until it has ended")) << client_.all();
}

// A row that another hand has written, or that lacks what its system does not tell.
TEST_F(LockedCompany, IsTakenFromARowThatDoesNotTellAll) {
  lock(host_name(), {999999999, ""});
  sql({"UPDATE TALLYRALOCK SET PROCESSSTART=NULL,SINCE=NULL"});
  EXPECT_EQ(run({"close", "2024/01/31"}), exit_done) << client_.all();
  EXPECT_EQ(locks(), "0\n");
  sql({"INSERT INTO TALLYRALOCK(LOCKKEY) VALUES('CLOSE')"});
  EXPECT_EQ(run({"reopen", "2024/01/31"}), exit_locked) << client_.all();
  EXPECT_TRUE(says("somebody (login not known, host not known, process not known) is at work on something;"))
      << client_.all();
  EXPECT_EQ(run({"reopen", "2024/01/31", "--break-lock"}), exit_done) << client_.all();
  EXPECT_EQ(locks(), "0\n");
}

// The lock that is broken is no reason to refuse.
TEST_F(LockedCompany, IsApprovedOnceTheLockOfAnotherHostIsBroken) {
  ASSERT_EQ(run({"close", "2024/01/31"}), exit_done) << client_.all();
  lock("elsewhere", {17, "1"});
  EXPECT_EQ(run({"approve", "2024/01/31"}), exit_locked);
  EXPECT_TRUE(says("--break-lock takes its lock")) << client_.all();
  EXPECT_EQ(run({"approve", "2024/01/31", "--break-lock"}), exit_done) << client_.all();
}

}  // namespace
}  // namespace tallyra::client
