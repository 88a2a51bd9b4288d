#include "bench/postgresql_replay.h"

#include <gtest/gtest.h>

#include "automation/create.h"
#include "automation/error.h"
#include "bench/statement_log.h"
#include "standins/ado/local_classes.h"
#include "tests/support/postgresql_server.h"
#include "tests/support/test_folder.h"

namespace tallyra::bench {
namespace {

using automation::Object;
using tests::PostgresqlServer;

class PostgresqlReplay : public ::testing::Test {
 protected:
  void SetUp() override {
    if (!PostgresqlServer::is_installed()) GTEST_SKIP() << "no server on this machine";
    standins::ado::register_classes();
    fresh();
  }
  void TearDown() override {
    if (!database_.empty()) server().drop_database(database_);
  }

  static PostgresqlServer& server() { return PostgresqlServer::shared(); }
  // The log names the database, which therefore stays.
  void fresh() {
    if (database_.empty()) database_ = server().new_database();
    server().administer(
        database_,
        "DROP TABLE IF EXISTS T; CREATE TABLE T(A text PRIMARY KEY, B float8, D timestamp(0));"
        "ALTER TABLE T OWNER TO tallyra");
  }
  std::string stored() const {
    return server().administer(database_, "SELECT string_agg(T::text,' ' ORDER BY A) FROM T");
  }
  void record(const std::vector<const char*>& statements) {
    const StatementLog log(log_);
    const Object connection = automation::create("ADODB.Connection");
    connection.call("Open", server().connection_string(database_));
    connection.call("BeginTrans");
    for (const char* const sql : statements) connection.call("Execute", sql);
    connection.call("CommitTrans");
    connection.call("Close");
  }

  tests::TestFolder folder_;
  std::string database_;
  std::string log_ = folder_.file("statements.log");
};

TEST_F(PostgresqlReplay, StoresWhatTheComponentHasStored) {
  record({"Insert Into T(A,B,D) Values('O''Hara',-2.5,#2024/02/29#)",
          "Insert Into T(A,B) Values('b',123456.789012345)", "Insert Into T(A,B) Values('c',3)",
          "Update T Set B=5 Where A='c'", "Delete From T Where A='gone'"});
  const std::string by_component = stored();
  ASSERT_EQ(by_component, "(O'Hara,-2.5,\"2024-02-29 00:00:00\") (b,123456.789012345,) (c,5,)");
  fresh();
  EXPECT_EQ(replay(log_, through_postgresql_by_text()), 5U);
  EXPECT_EQ(stored(), by_component);
}

TEST_F(PostgresqlReplay, EndsWhereAStatementFailsThatHadSucceeded) {
  record({"Insert Into T(A) Values('a')"});
  EXPECT_THROW(replay(log_, through_postgresql_by_text()), std::runtime_error);
}

TEST_F(PostgresqlReplay, LeavesNothingOfATransactionThatWasNotEnded) {
  std::string where = server().connection_string(database_);
  std::string insert = "INSERT INTO T(A) VALUES('left')";
  {
    const auto connection = through_postgresql_by_text()(where);
    connection->begin();
    connection->run(insert, false);
  }
  EXPECT_EQ(stored(), "");
}

TEST_F(PostgresqlReplay, TellsOfAServerThatIsNotThere) {
  std::string nowhere = "Driver={PostgreSQL Unicode};Servername=127.0.0.1;Port=1;Database=d;Username=u";
  EXPECT_THROW(through_postgresql_by_text()(nowhere), std::runtime_error);
}

}  // namespace
}  // namespace tallyra::bench
