#include "standins/ado/sqlite/sqlite_error.h"

#include <gtest/gtest.h>

#include "standins/ado/ado_error.h"

namespace tallyra::standins::ado {
namespace {

class SqliteErrorTest : public testing::Test {
 protected:
  SqliteErrorTest() { EXPECT_EQ(sqlite3_open(":memory:", &database_), SQLITE_OK); }
  ~SqliteErrorTest() override { sqlite3_close(database_); }

  int run(const char* sql) { return sqlite3_exec(database_, sql, nullptr, nullptr, nullptr); }

  sqlite3* database_ = nullptr;
};

TEST_F(SqliteErrorTest, HasTheProvidersNumberAndTheEnginesWords) {
  run("select * from NOSUCH");
  EXPECT_EQ(sqlite_error(database_).number(), provider_error::no_such_table);
  EXPECT_EQ(sqlite_error(database_).description(), "no such table: NOSUCH");
  run("create table T(A integer unique); insert into T values(1),(1)");
  EXPECT_EQ(sqlite_error(database_).number(), provider_error::integrity_violation);
}

TEST_F(SqliteErrorTest, OfWhatIsNotAllowedIsARefusal) {
  sqlite3_set_authorizer(
      database_, [](void*, int, const char*, const char*, const char*, const char*) { return SQLITE_DENY; },
      nullptr);
  run("select 1");
  EXPECT_EQ(sqlite_error(database_).number(), provider_error::permission_denied);
}

TEST_F(SqliteErrorTest, IsThrownForAFailureOnly) {
  for (const int code : {SQLITE_OK, SQLITE_ROW, SQLITE_DONE})
    EXPECT_NO_THROW(require_sqlite(database_, code));
  EXPECT_THROW(require_sqlite(database_, run("nonsense")), automation::Error);
}

}  // namespace
}  // namespace tallyra::standins::ado
