#include "client/database/reader.h"
#include "tests/behaviour/client/month_end/closing_on_a_server.h"

// The month end on a database server gives what it gives on SQLite.
namespace tallyra::client {
namespace {

TEST_F(ClosingOnAServer, GoesAsOnSqlite) {
  expect_the_same({"check", "2024/01/31"});
  expect_the_same({"check", "2024/02/28"}, exit_failed);
  expect_the_same({"close", "2024/01/31"});
  expect_the_same({"close", "2024/02/29"}, exit_failed);
  expect_the_same({"verify", "2024/01/31"});
  expect_the_same({"approve", "2024/01/31"});
  expect_the_same({"close", "2024/02/29"});
  expect_the_same({"status"});
  expect_the_same({"reopen", "2024/01/31"}, exit_failed);
  expect_the_same({"reopen", "2024/02/29"});
  EXPECT_EQ(server_.run({"log", "--csv"}), exit_done);
  EXPECT_NE(server_.out().find("reopen,2024/02/29,done"), std::string::npos) << server_.all();
}

TEST_F(ClosingOnAServer, LetsOneInAtATime) {
  ASSERT_EQ(server_.run({"close", "2024/01/31", "--yes"}), exit_done) << server_.all();
  const Reader reader(connection_, "MSSQLSERVER");
  reader.execute(
      "Insert Into TALLYRALOCK(LOCKKEY,WORKTEXT,OWNERID,HOSTNAME,PROCESSID,PROCESSSTART,SINCE) "
      "Values('CLOSE','close 2024/01/31','ANNA','elsewhere',17,'1','2024/03/05 09:00:00')");
  EXPECT_EQ(server_.run({"reopen", "2024/01/31", "--yes"}), exit_locked) << server_.all();
  EXPECT_THROW(reader.execute("Insert Into TALLYRALOCK(LOCKKEY) Values('CLOSE')"), automation::Error);
  EXPECT_EQ(server_.run({"reopen", "2024/01/31", "--yes", "--break-lock"}), exit_done) << server_.all();
}

TEST_F(ClosingOnAServer, TellsHowToBackItUp) {
  EXPECT_EQ(server_.run({"close", "2024/01/31", "--yes", "--backup"}), exit_failed);
  EXPECT_NE(server_.error().find("pg_dump"), std::string::npos) << server_.all();
}

}  // namespace
}  // namespace tallyra::client
