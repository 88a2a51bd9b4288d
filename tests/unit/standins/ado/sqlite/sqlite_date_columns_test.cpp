#include "standins/ado/sqlite/sqlite_date_columns.h"

#include <gtest/gtest.h>

namespace tallyra::standins::ado {
namespace {

class SqliteDateColumnsTest : public testing::Test {
 protected:
  SqliteDateColumnsTest() {
    EXPECT_EQ(sqlite3_open(":memory:", &database_), SQLITE_OK);
    run("CREATE TABLE T(A date, B timestamp, C integer, D, \"odd \"\" name\" date)");
    run("CREATE VIEW V AS SELECT A AS AA, C AS CC, A || '' AS TEXT FROM T");
  }
  ~SqliteDateColumnsTest() override { sqlite3_close(database_); }

  void run(const char* sql) {
    EXPECT_EQ(sqlite3_exec(database_, sql, nullptr, nullptr, nullptr), SQLITE_OK) << sql;
  }

  sqlite3* database_ = nullptr;
};

TEST_F(SqliteDateColumnsTest, AreThoseThatTheirTablesDeclare) {
  SqliteDateColumns columns(database_);
  EXPECT_TRUE(columns.is_date("T", "A"));
  EXPECT_TRUE(columns.is_date("t", "b"));
  EXPECT_TRUE(columns.is_date("T", "odd \" name"));
  EXPECT_FALSE(columns.is_date("T", "C"));
  EXPECT_FALSE(columns.is_date("T", "D"));
  EXPECT_FALSE(columns.is_date("T", "NOSUCH"));
  EXPECT_FALSE(columns.is_date("NOSUCH", "A"));
}

TEST_F(SqliteDateColumnsTest, OfAViewAreThoseThatItTakesFromATable) {
  SqliteDateColumns columns(database_);
  EXPECT_TRUE(columns.is_date("V", "AA"));
  EXPECT_FALSE(columns.is_date("V", "CC"));
  EXPECT_FALSE(columns.is_date("V", "TEXT"));
  EXPECT_FALSE(columns.is_date("V", "A"));
}

TEST_F(SqliteDateColumnsTest, FollowTheSchema) {
  SqliteDateColumns columns(database_);
  EXPECT_FALSE(columns.is_date("U", "A"));
  run("CREATE TABLE U(A date)");
  EXPECT_TRUE(columns.is_date("U", "A"));
}

}  // namespace
}  // namespace tallyra::standins::ado
