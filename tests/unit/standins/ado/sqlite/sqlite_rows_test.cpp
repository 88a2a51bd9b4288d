#include "standins/ado/sqlite/sqlite_rows.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

namespace tallyra::standins::ado {
namespace {

using automation::Null;
using automation::Value;

class SqliteRowsTest : public testing::Test {
 protected:
  SqliteRowsTest() { EXPECT_EQ(sqlite3_open(":memory:", &database_), SQLITE_OK); }
  ~SqliteRowsTest() override { sqlite3_close(database_); }

  void run(const char* sql) {
    EXPECT_EQ(sqlite3_exec(database_, sql, nullptr, nullptr, nullptr), SQLITE_OK) << sql;
  }
  std::unique_ptr<RowSet> read(const char* sql) {
    sqlite3_stmt* statement = nullptr;
    EXPECT_EQ(sqlite3_prepare_v2(database_, sql, -1, &statement, nullptr), SQLITE_OK) << sql;
    int code = sqlite3_step(statement);
    auto rows = read_sqlite_rows(statement, code, false);
    EXPECT_EQ(code, SQLITE_DONE);
    sqlite3_finalize(statement);
    return rows;
  }
  // The values of the only column.
  std::vector<Value> values(const char* sql) {
    const auto rows = read(sql);
    std::vector<Value> result;
    for (std::size_t row = 0; row < rows->row_count(); ++row) result.push_back(rows->value(row, 0));
    return result;
  }

  sqlite3* database_ = nullptr;
};

using Values = std::vector<Value>;

TEST_F(SqliteRowsTest, HaveTheTypesThatTheirColumnsDeclare) {
  run("CREATE TABLE T(I integer, F double, V varchar(9))");
  run("INSERT INTO T VALUES(5,5,'5'),(NULL,NULL,NULL)");
  EXPECT_EQ(values("SELECT I FROM T"), (Values{std::int32_t{5}, Null{}}));
  EXPECT_EQ(values("SELECT F FROM T"), (Values{5.0, Null{}}));
  EXPECT_EQ(values("SELECT V FROM T"), (Values{"5", Null{}}));
}

TEST_F(SqliteRowsTest, SpellBytesInAColumnThatIsNotForThem) {
  run("CREATE TABLE T(V varchar(9))");
  run("INSERT INTO T VALUES(x'00ff7a')");
  EXPECT_EQ(values("SELECT V FROM T"), (Values{"X'00FF7A'"}));
}

TEST_F(SqliteRowsTest, HaveNoSignBeforeAZero) {
  run("CREATE TABLE T(F double)");
  run("INSERT INTO T VALUES(-0.0)");
  EXPECT_FALSE(std::signbit(*values("SELECT F FROM T").at(0).get_if<double>()));
}

TEST_F(SqliteRowsTest, OfAnUndeclaredColumnAreNumbersWhenAllOfThemAreAndTheFirstIsNull) {
  EXPECT_EQ(values("SELECT NULL UNION ALL SELECT 7"), (Values{Null{}, std::int32_t{7}}));
  EXPECT_EQ(values("SELECT NULL UNION ALL SELECT 7 UNION ALL SELECT 0.5"), (Values{Null{}, 7.0, 0.5}));
  EXPECT_EQ(values("SELECT NULL UNION ALL SELECT 7 UNION ALL SELECT 'a'"), (Values{Null{}, "7", "a"}));
}

TEST_F(SqliteRowsTest, AreNoneWithTheirColumnsAllTheSame) {
  run("CREATE TABLE T(I integer, V varchar(9))");
  const auto rows = read("SELECT * FROM T");
  EXPECT_EQ(rows->row_count(), 0U);
  ASSERT_EQ(rows->columns().size(), 2U);
  EXPECT_EQ(rows->columns()[0].name, "I");
  EXPECT_EQ(rows->columns()[1].defined_size, 9);
}

}  // namespace
}  // namespace tallyra::standins::ado
