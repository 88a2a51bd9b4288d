#include "bench/replay.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "automation/create.h"
#include "automation/error.h"
#include "bench/odbc_replay.h"
#include "bench/sqlite_database.h"
#include "bench/sqlite_replay.h"
#include "bench/statement_log.h"
#include "standins/ado/local_classes.h"
#include "tests/support/test_folder.h"

namespace tallyra::bench {
namespace {

using automation::Object;

constexpr const char* table =
    "create table T(K integer primary key, A text, B real, C integer, D timestamp);"
    "create unique index T_A on T(A) where A<>''";

// Every row with the class in which each value is stored.
constexpr const char* content =
    "select group_concat(quote(A)||typeof(A)||quote(B)||typeof(B)||quote(C)||typeof(C)||quote(D),' ')"
    " from (select * from T order by K)";

struct Way {
  const char* name;
  Connect (*connect)();
};

constexpr Way ways[] = {
    {"ODBC", through_odbc}, {"text", through_sqlite_by_text}, {"shape", through_sqlite_by_shape}};

class ReplayTest : public ::testing::Test {
 protected:
  ReplayTest() {
    standins::ado::register_classes();
    fresh();
  }

  void fresh() {
    std::filesystem::remove(database_);
    SqliteDatabase(database_).execute(table);
  }

  std::string stored() {
    SqliteDatabase database(database_);
    const SqliteStatement query = database.prepare(content);
    if (sqlite3_step(query.get()) != SQLITE_ROW) return "no row";
    const auto* const text = sqlite3_column_text(query.get(), 0);
    return text ? reinterpret_cast<const char*>(text) : "nothing";
  }

  // Logs what goes over one connection.
  void record(const std::function<void(const Object&)>& work) {
    const StatementLog log(log_);
    const Object connection = automation::create("ADODB.Connection");
    connection.call("Open", "DRIVER={SQLite3};Timeout=2000;Database=" + database_);
    work(connection);
    connection.call("Close");
  }

  tests::TestFolder folder_;
  std::string database_ = folder_.file("work.db");
  std::string log_ = folder_.file("statements.log");
};

void insert_rows(const Object& connection) {
  connection.call("BeginTrans");
  for (const char* row : {"'a',1,2,#2024/01/31#", "'O''Hara',-2.5,'17',Null", "'',0.1,'x',#2024/02/29#",
                          "'15 digits',123456.789012345,9007199254740993,''", "7,'8',9.0,Null"})
    connection.call("Execute", std::string("Insert Into T(A,B,C,D) Values(") + row + ")");
  connection.call("CommitTrans");
}

TEST_F(ReplayTest, StoresWhatTheComponentHasStored) {
  record(insert_rows);
  const std::string by_component = stored();
  ASSERT_NE(by_component.find("'O''Hara'text-2.5real17integerNULL"), std::string::npos) << by_component;
  for (const Way& way : ways) {
    fresh();
    EXPECT_EQ(replay(log_, way.connect()), 5U) << way.name;
    EXPECT_EQ(stored(), by_component) << way.name;
  }
}

TEST_F(ReplayTest, ChangesAndRollsBackAsTheComponentDid) {
  record([](const Object& connection) {
    insert_rows(connection);
    connection.call("Execute", "Update T Set B=5,D=#2024/03/31# Where A='a' And C=2");
    connection.call("Execute", "Delete From T Where A<>'' And C>=9007199254740993");
    connection.call("BeginTrans");
    connection.call("Execute", "Delete From T Where A=''");
    connection.call("RollbackTrans");
  });
  const std::string by_component = stored();
  for (const Way& way : ways) {
    fresh();
    EXPECT_EQ(replay(log_, way.connect()), 8U) << way.name;
    EXPECT_EQ(stored(), by_component) << way.name;
  }
}

TEST_F(ReplayTest, GoesOnAfterAStatementThatFailedForTheComponentToo) {
  record([](const Object& connection) {
    for (const char* sql : {"Insert Into T(A) Values('a')", "Insert Into T(A) Values('a')",
                            "Insert Into NOSUCH(A) Values('a')", "Insert Into T(A) Values('b')"}) {
      try {
        connection.call("Execute", sql);
      } catch (const automation::Error&) {
      }
    }
  });
  const std::string by_component = stored();
  for (const Way& way : ways) {
    fresh();
    EXPECT_EQ(replay(log_, way.connect()), 4U) << way.name;
    EXPECT_EQ(stored(), by_component) << way.name;
  }
}

TEST_F(ReplayTest, EndsWhereAStatementFailsThatHadSucceeded) {
  record([](const Object& connection) { connection.call("Execute", "Insert Into T(A) Values('a')"); });
  for (const Way& way : ways) EXPECT_THROW(replay(log_, way.connect()), std::runtime_error) << way.name;
}

TEST_F(ReplayTest, LeavesNothingOfATransactionThatWasNotEnded) {
  for (const Way& way : ways) {
    const Connect connect = way.connect();
    std::string opened = "DRIVER={SQLite3};Database=" + database_;
    std::string insert = "Insert Into T(A) Values('left')";
    {
      const auto connection = connect(opened);
      connection->begin();
      connection->run(insert, false);
    }
    EXPECT_EQ(stored(), "nothing") << way.name;
  }
}

}  // namespace
}  // namespace tallyra::bench
