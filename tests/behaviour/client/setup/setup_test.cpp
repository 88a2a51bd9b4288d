#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "automation/local/local_classes.h"
#include "automation/member_table.h"
#include "client/database/reader.h"
#include "tests/support/client_program.h"
#include "tests/support/company_database.h"
#include "tests/support/postgresql_server.h"
#include "tests/support/test_folder.h"

// From no database to one in which somebody may work.
namespace tallyra::client {
namespace {

// An empty place for a database on the engine of the test. The company beside it registers all classes.
class NewDatabase : public testing::Test {
 protected:
  ExitStatus run(std::vector<std::string> words) {
    words.insert(words.end(), {"--db", db_});
    return client_.run(std::move(words));
  }
  ExitStatus enters_an_address(const char* user) {
    return run({"CRevAddr", "Insert", "A1", "ADDRNO=A1", "--user", user});
  }
  bool says(const std::string& text) const { return client_.all().find(text) != std::string::npos; }

  behaviour::CompanyDatabase registered_;
  tests::TestFolder folder_;
  std::string file_ = folder_.file("new.db");
  std::string db_ = registered_.is_sqlite() ? file_ : on_server();

 private:
  static std::string on_server() {
    auto& server = tests::PostgresqlServer::shared();
    return server.connection_string(server.new_database());
  }

 protected:
  ClientProgram client_;
};

TEST_F(NewDatabase, IsMadeOnceAndSaysWhomToGrantWhat) {
  ASSERT_EQ(run({"init", "--user", "ANNA"}), exit_done) << client_.all();
  EXPECT_TRUE(says("tallyra-client grant ANNA '*' all")) << client_.all();
  EXPECT_EQ(run({"init"}), exit_failed);
  EXPECT_TRUE(says("of the tables already")) << client_.all();
  EXPECT_EQ(run({"upgrade"}), exit_done);
  EXPECT_TRUE(says("nothing was missing")) << client_.all();
  EXPECT_EQ(run({"log", "--csv"}), exit_done);
  EXPECT_TRUE(says("init,,done,")) << client_.out();
}

TEST_F(NewDatabase, IsMadeByNoOtherVerb) {
  if (!registered_.is_sqlite()) GTEST_SKIP() << "no file";
  EXPECT_EQ(run({"status"}), exit_wrong_usage);
  EXPECT_TRUE(says("'init' makes a new database")) << client_.all();
  EXPECT_FALSE(std::filesystem::exists(file_));
}

TEST_F(NewDatabase, IsNotMadeInAFolderThatIsNotThere) {
  db_ = folder_.file("nowhere/new.db");
  EXPECT_EQ(run({"init"}), exit_failed);
  EXPECT_TRUE(says("there is no folder")) << client_.all();
  EXPECT_EQ(run({"upgrade"}), exit_wrong_usage);
}

TEST_F(NewDatabase, LetsDoWhatIsGrantedAndNoMore) {
  ASSERT_EQ(run({"init"}), exit_done);
  EXPECT_EQ(enters_an_address("ANNA"), exit_failed);
  EXPECT_TRUE(
      says("nobody has any right in this database yet; let ANNA do it by: tallyra-client grant ANNA CRevAddr "
           "insert;"))
      << client_.all();
  ASSERT_EQ(run({"grant", "ANNA", "crevaddr", "insert", "Delete"}), exit_done) << client_.all();
  EXPECT_TRUE(says("ANNA may now insert, delete under STK028ADDR.")) << client_.all();
  EXPECT_EQ(enters_an_address("ANNA"), exit_done) << client_.all();
  ASSERT_EQ(run({"revoke", "ANNA", "STK028ADDR", "insert"}), exit_done);
  EXPECT_EQ(run({"CRevAddr", "Insert", "A2", "ADDRNO=A2", "--user", "ANNA"}), exit_failed);
  EXPECT_TRUE(says("tallyra-client: let ANNA do it by: tallyra-client grant ANNA CRevAddr insert;"))
      << client_.all();
  EXPECT_EQ(run({"CTranHead", "Delete", "R1", "STK010POREV", "--user", "ANNA"}), exit_failed);
  EXPECT_TRUE(says("let ANNA do it by: tallyra-client grant ANNA STK010POREV delete;")) << client_.all();
  EXPECT_EQ(run({"CTranHead", "Insert", "R1", "STK010POREV", "TRANNO=R1"}), exit_failed);
  EXPECT_TRUE(says("no user was named")) << client_.all();
  EXPECT_EQ(run({"CRevAddr", "Delete", "A1", "--user", "ANNA"}), exit_done) << client_.all();
}

TEST_F(NewDatabase, KeepsWhatIsGrantedForAllFunctionsBesideARowOfOne) {
  ASSERT_EQ(run({"init"}), exit_done);
  ASSERT_EQ(run({"grant", "ANNA", "*", "insert", "update"}), exit_done) << client_.all();
  ASSERT_EQ(run({"grant", "ANNA", "CStockClose", "approve"}), exit_done);
  EXPECT_TRUE(says("ANNA may now insert, update, approve under STK027CLOSE")) << client_.all();
  ASSERT_EQ(run({"revoke", "ANNA", "CRevAddr", "all"}), exit_done);
  ASSERT_EQ(run({"rights", "ANNA", "--csv"}), exit_done) << client_.all();
  EXPECT_TRUE(says("\nSTK027CLOSE,month closes,yes,yes,-,yes,-,-,-,-\n")) << client_.out();
  EXPECT_TRUE(says("\nSTK028ADDR,receiving addresses,-,-,-,-,-,-,-,-\n")) << client_.out();
  EXPECT_TRUE(says("\nSTK024MRPL,transfers,yes,yes,-,-,-,-,-,-\n")) << client_.out();
}

TEST_F(NewDatabase, LosesARowThatTakesNothingAway) {
  ASSERT_EQ(run({"init"}), exit_done);
  ASSERT_EQ(run({"grant", "ANNA", "*", "all"}), exit_done);
  ASSERT_EQ(run({"rights", "--csv"}), exit_done);
  EXPECT_TRUE(says("\nANNA,*,yes,yes,yes,yes,yes,yes,yes,yes\n")) << client_.out();
  ASSERT_EQ(run({"revoke", "ANNA", "*", "all"}), exit_done);
  ASSERT_EQ(run({"rights", "--csv"}), exit_done);
  EXPECT_FALSE(says("ANNA")) << client_.out();
  EXPECT_TRUE(says("Nobody may do anything")) << client_.error();
}

TEST_F(NewDatabase, TakesNothingAwayFromWhoIsNotThere) {
  ASSERT_EQ(run({"init"}), exit_done);
  ASSERT_EQ(run({"grant", "ANNA", "CStockClose", "approve"}), exit_done);
  EXPECT_EQ(run({"revoke", "ANA", "CStockClose", "approve"}), exit_failed) << client_.all();
  EXPECT_TRUE(
      says("there is no user 'ANA' in the table of rights; nothing was changed; did you mean 'ANNA'?"))
      << client_.all();
  EXPECT_EQ(run({"revoke", "ANNA", "CRevAddr", "all"}), exit_done) << "ANNA is there, and has no such right";
  ASSERT_EQ(run({"grant", "*", "*", "insert"}), exit_done);
  EXPECT_EQ(run({"revoke", "BERND", "CRevAddr", "insert"}), exit_done) << "he has what everybody has";
  ASSERT_EQ(run({"rights", "BERND", "--csv"}), exit_done);
  EXPECT_TRUE(says("\nSTK028ADDR,receiving addresses,-,-")) << client_.out();
}

TEST_F(NewDatabase, TakesWrongWordsForWrongUsage) {
  ASSERT_EQ(run({"init"}), exit_done);
  EXPECT_EQ(run({"grant", "ANNA", "CStokClose", "insert"}), exit_wrong_usage);
  EXPECT_TRUE(says("did you mean 'CStockClose'?")) << client_.all();
  EXPECT_EQ(run({"grant", "ANNA", "*", "aprove"}), exit_wrong_usage);
  EXPECT_TRUE(says("did you mean 'approve'?")) << client_.all();
  EXPECT_EQ(run({"grant", "O'HARA", "*", "all"}), exit_wrong_usage);
  EXPECT_EQ(run({"grant", "ANNA", "*"}), exit_wrong_usage);
}

TEST_F(NewDatabase, IsWellInTheEyesOfTheDoctor) {
  ASSERT_EQ(run({"init"}), exit_done);
  ASSERT_EQ(run({"grant", "ANNA", "*", "all"}), exit_done);
  EXPECT_EQ(run({"doctor", "--user", "ANNA", "--csv"}), exit_done) << client_.all();
  EXPECT_FALSE(says("\nBAD,")) << client_.out();
  for (const char* what :
       {"library Tallyra,\"10 classes", "place of the rights,table USERRIGHTS", "waiting for a lock",
        "transactions and writing", "clock", "lock and journal,this program has"})
    EXPECT_TRUE(says(what)) << what << "\n" << client_.out();
  EXPECT_TRUE(says(registered_.is_sqlite() ? "engine,SQLite " : "engine,PostgreSQL ")) << client_.out();
}

TEST_F(NewDatabase, IsNotWellWithoutATableAColumnOrARight) {
  registered_.run({"ALTER TABLE STKTRANDT DROP COLUMN VQTY", "DROP TABLE REVADDR"});
  db_ = registered_.connection_string();
  EXPECT_EQ(run({"doctor", "--user", "NOBODY", "--csv"}), exit_failed);
  EXPECT_TRUE(says("\nBAD,table REVADDR,missing")) << client_.out();
  EXPECT_TRUE(says("\nBAD,table STKTRANDT,lacks STKTRANDT.VQTY")) << client_.out();
  EXPECT_TRUE(says("\nBAD,rights of NOBODY,none,'grant NOBODY * all'")) << client_.out();
  ASSERT_EQ(run({"upgrade"}), exit_done) << client_.all();
  EXPECT_EQ(run({"doctor", "--user", "ADMIN", "--csv"}), exit_done) << client_.all();
}

TEST_F(NewDatabase, IsToldInOneLineWhenItIsNone) {
  if (!registered_.is_sqlite()) GTEST_SKIP() << "no file";
  std::ofstream(file_) << "this is a letter, no database";
  EXPECT_EQ(run({"doctor", "--user", "ANNA", "--csv"}), exit_failed);
  EXPECT_TRUE(says("\nBAD,database,DRIVER={SQLite3};Database=" + file_ + ": error")) << client_.out();
  EXPECT_TRUE(says("name the file of a database")) << client_.out();
  EXPECT_TRUE(says("1 bad, 0 doubtful.")) << client_.all();
}

TEST_F(NewDatabase, IsToldInOneLineWhenItIsEmpty) {
  if (registered_.is_sqlite()) std::ofstream(file_) << "";
  EXPECT_EQ(run({"doctor", "--user", "ANNA", "--csv"}), exit_failed);
  EXPECT_TRUE(says("\nBAD,tables,\"none is there, or none can be read\",\"'init' makes them"))
      << client_.out();
  EXPECT_TRUE(says("1 bad, ")) << client_.all();
}

TEST_F(NewDatabase, SaysHowLongItWaitsForALock) {
  ASSERT_EQ(run({"init"}), exit_done);
  run({"doctor", "--csv"});
  if (!registered_.is_sqlite()) {
    EXPECT_TRUE(says("waiting for a lock,\"until it is free, as lock_timeout says")) << client_.out();
    db_ = registered_.connection_string();
    run({"doctor", "--csv"});
    EXPECT_TRUE(says("waiting for a lock,\"2s, as lock_timeout says")) << client_.out();
    return;
  }
  EXPECT_TRUE(says("waiting for a lock,\"100 seconds, as no Timeout stands")) << client_.out();
  db_ = "DRIVER={SQLite3};Timeout=2500;Database=" + file_;
  run({"doctor", "--csv"});
  EXPECT_TRUE(says("waiting for a lock,\"2500 milliseconds, as Timeout in the connection")) << client_.out();
}

TEST_F(NewDatabase, CannotBeWrittenToWhileAnotherOneWrites) {
  if (!registered_.is_sqlite()) GTEST_SKIP() << "there others write beside each other";
  db_ = "DRIVER={SQLite3};Timeout=50;Database=" + registered_.file().string();
  const Reader other(registered_.connection_string(), "MSACCESS");
  other.begin();
  other.execute("Update USERRIGHTS Set OWNER=OWNER");
  EXPECT_EQ(run({"doctor", "--user", "ADMIN", "--csv"}), exit_failed);
  EXPECT_TRUE(says("\nBAD,transactions and writing,")) << client_.all();
  other.roll_back();
}

// A library that answers for rights and says nothing about where it keeps them.
class OtherPowerCheck : public automation::Implements<OtherPowerCheck> {
 public:
  static const automation::MemberTable<OtherPowerCheck>& members() {
    using automation::property;
    using automation::write_only;
    static const automation::MemberTable<OtherPowerCheck> table{
        {1, "Language", write_only<&OtherPowerCheck::ignore>},
        {2, "ConnectionString", write_only<&OtherPowerCheck::ignore>},
        {3, "UserID", write_only<&OtherPowerCheck::ignore>},
        {4, "SystemDatabase", write_only<&OtherPowerCheck::ignore>},
    };
    return table;
  }
  void ignore(const automation::Value&) {}
};

TEST_F(NewDatabase, GrantsNothingWhereRightsAreKeptElsewhere) {
  ASSERT_EQ(run({"init"}), exit_done);
  automation::local::register_class("Corvane.CPowerCheck",
                                    [] { return automation::make_object<OtherPowerCheck>(); });
  EXPECT_EQ(run({"grant", "ANNA", "*", "all"}), exit_failed);
  EXPECT_TRUE(says("keeps rights in a place of its own")) << client_.all();
  EXPECT_EQ(run({"revoke", "ANNA", "*", "all"}), exit_failed);
  EXPECT_EQ(run({"rights"}), exit_failed);
}

}  // namespace
}  // namespace tallyra::client
