#include <sqlite3.h>

#include "tests/unit/standins/ado/scratch_database.h"

namespace tallyra::standins::ado::test {
namespace {

std::int64_t slept_microseconds = 0;

// The machine's files, with a sleep that takes no time: how long the library has waited is counted, not
// measured.
class CountedSleep {
 public:
  CountedSleep() : own_(*sqlite3_vfs_find(nullptr)) {
    own_.zName = "counted-sleep";
    own_.xSleep = [](sqlite3_vfs*, int microseconds) {
      slept_microseconds += microseconds;
      return microseconds;
    };
    sqlite3_vfs_register(&own_, 1);
  }
  ~CountedSleep() { sqlite3_vfs_unregister(&own_); }
  CountedSleep(const CountedSleep&) = delete;
  CountedSleep& operator=(const CountedSleep&) = delete;

 private:
  sqlite3_vfs own_;
};

class SqliteLockWaitTest : public ScratchDatabase {
 protected:
  SqliteLockWaitTest() {
    connection = open_connection();
    execute(connection, "create table T(A integer, B varchar(9))");
    execute(connection, "insert into T(A,B) values(1,'x')");
    holder = open_connection();
    execute(holder, "begin exclusive");
  }

  // In milliseconds, until the statement is refused.
  static std::int64_t wait_of(const Object& connection, std::string_view sql) {
    slept_microseconds = 0;
    EXPECT_EQ(description_of([&] { execute(connection, sql); }), "database is locked") << sql;
    return slept_microseconds / 1000;
  }

  CountedSleep counted_sleep;
  Object connection;
  Object holder;
};

constexpr const char* statements[] = {
    "select B from T where A=1",  "select A from T where B='x'",      "select A from T where B like 'x'",
    "insert into T(A) values(1)", "insert into T(A,B) values(1,'x')", "update T set B='y' where A=1",
    "delete from T where A=1+0",
};

// 100 by the connection string.
TEST_F(SqliteLockWaitTest, IsOneTimeoutForEveryStatement) {
  for (const char* const sql : statements) {
    EXPECT_EQ(wait_of(connection, sql), 100) << sql;
    EXPECT_EQ(wait_of(open_connection(), sql), 100) << "the first of its connection: " << sql;
  }
}

TEST_F(SqliteLockWaitTest, IsOneTimeoutForTheFirstStatementOfATransaction) {
  for (const char* const sql : statements) {
    const Object fresh = open_connection();
    for (const Object& each : {connection, fresh}) {
      each.call("BeginTrans");
      EXPECT_EQ(wait_of(each, sql), 100) << sql;
      each.call("RollbackTrans");
    }
  }
}

}  // namespace
}  // namespace tallyra::standins::ado::test
