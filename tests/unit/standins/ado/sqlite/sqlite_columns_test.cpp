#include "standins/ado/sqlite/sqlite_columns.h"

#include <cmath>

#include "automation/bytes.h"
#include "automation/convert.h"
#include "tests/unit/standins/ado/scratch_database.h"

// Through the engine's own library a client sees what it sees through ODBC.
namespace tallyra::standins::ado::test {
namespace {

class SqliteColumnsTest : public ScratchDatabase {
 protected:
  Object connect(const std::string& prefix) const {
    const Object connection = automation::create("ADODB.Connection");
    connection.call("Open", prefix + odbc_string());
    return connection;
  }

  void expect_alike(const std::string& sql) const {
    SCOPED_TRACE(sql);
    // The driver describes columns from before another connection changed the table.
    const Object odbc = connect("Provider=MSDASQL;");
    const Object mine = open_recordset(library, sql, {3, 3});
    const Object theirs = open_recordset(odbc, sql, {3, 3});
    const auto columns = number(fields(theirs).get("Count"));
    ASSERT_EQ(number(fields(mine).get("Count")), columns);
    for (std::int32_t i = 0; i < columns; ++i)
      for (const char* member : {"Name", "Type", "DefinedSize", "Precision", "NumericScale"})
        EXPECT_EQ(field(mine, i).get(member), field(theirs, i).get(member))
            << "column " << i << ' ' << member;
    ASSERT_EQ(mine.get("RecordCount"), theirs.get("RecordCount"));
    for (; !is_true(theirs.get("EOF")); mine.call("MoveNext"), theirs.call("MoveNext"))
      for (std::int32_t i = 0; i < columns; ++i) expect_alike(value(mine, i), value(theirs, i), i);
  }

  // Doubles come exact from the library, and through 15 digits from the driver.
  static void expect_alike(const Value& mine, const Value& theirs, std::int32_t column) {
    const auto* const exact = mine.get_if<double>();
    const auto* const rounded = theirs.get_if<double>();
    if (exact && rounded) {
      EXPECT_LE(std::abs(*exact - *rounded), std::abs(*exact) * 1e-14) << "column " << column;
    } else if (mine.get_if<automation::Opaque>() && theirs.get_if<automation::Opaque>()) {
      EXPECT_EQ(bytes(mine), bytes(theirs)) << "column " << column;
    } else {
      EXPECT_EQ(mine, theirs) << "column " << column;
    }
  }

  static std::string bytes(const Value& value) {
    return std::string(
        dynamic_cast<const automation::Bytes&>(**value.get_if<automation::Opaque>()).content());
  }

  Object library = connect("");
};

constexpr const char* declarations[] = {"integer",
                                        "int(5)",
                                        "bigint",
                                        "smallint",
                                        "tinyint",
                                        "mediumint",
                                        "int unsigned",
                                        "unsigned int",
                                        "double",
                                        "double precision",
                                        "float",
                                        "float(10,3)",
                                        "real",
                                        "numeric",
                                        "numeric(10,2)",
                                        "decimal",
                                        "decimal(12,4)",
                                        "decimal(30,2)",
                                        "DECIMAL (7, 2)",
                                        "money",
                                        "smallmoney",
                                        "currency",
                                        "bool",
                                        "boolean",
                                        "bit",
                                        "varchar(20)",
                                        "VARCHAR (7)",
                                        "char(5)",
                                        "nchar(3)",
                                        "nvarchar(30)",
                                        "text",
                                        "memo",
                                        "longvarchar",
                                        "clob",
                                        "timestamp",
                                        "datetime",
                                        "date",
                                        "time",
                                        "blob",
                                        "varbinary(10)",
                                        "longvarbinary",
                                        "binary(4)",
                                        "interval",
                                        "single",
                                        "guid",
                                        "counter",
                                        "long",
                                        ""};

constexpr const char* literals[] = {"null",
                                    "0",
                                    "1",
                                    "-7",
                                    "255",
                                    "70000",
                                    "2147483648",
                                    "9223372036854775807",
                                    "1.5",
                                    "-0.25",
                                    "1e300",
                                    "1e15",
                                    "123456789012345.6",
                                    "0.1",
                                    "'text'",
                                    "''",
                                    "'12'",
                                    "'1.50'",
                                    "'2024-03-31 00:00:00'",
                                    "'2024-03-31'",
                                    "'ab  '",
                                    "'\xC3\xA4\xE2\x82\xAC'"};

TEST_F(SqliteColumnsTest, HaveTheTypesAndValuesThatTheyHaveThroughOdbc) {
  for (const std::string declaration : declarations) {
    execute(library, "create table T(A " + declaration + ")");
    expect_alike("select A from T");
    for (const std::string literal : literals) execute(library, "insert into T values(" + literal + ")");
    expect_alike("select A from T");
    expect_alike("select A from T order by rowid desc");
    expect_alike("select max(A), min(A), count(A), A as [x.y], T.A from T where A is not null");
    execute(library, "drop table T");
  }
}

TEST_F(SqliteColumnsTest, OfExpressionsHaveTheTypesThatTheyHaveThroughOdbc) {
  execute(library, "create table T(A integer, B double, C varchar(10), D timestamp, E)");
  execute(library, "create view V as select A, D, B*2 as F from T");
  const char* const queries[] = {
      "select A+1, sum(B), max(D), min(C), count(*), null, 0.1, 'a.b', x'4142' from T",
      "select sum(A), sum(B), max(D) from T group by C order by C",
      "select cast(A as varchar(12)), cast(B as decimal(10,2)), (select C from T), T.A from T",
      "select v.A, v.K from (select A, sum(B) as K from T) v",
      "select 1 union select 'a' order by 1",
      "select A from T union select C from T",
      "select * from V",
      "select E from T",
      "select 9223372036854775807, 1e300, 1.0/3, -0.0, 1e15, 1e16",
      "pragma table_info(T)",
      "select case when A=1 then null else B end from T order by A",
      "select case when A=1 then null when A=2 then 5 else 'x' end from T order by A",
      "select case when A=1 then null when A=2 then 5 else 2.5 end from T order by A",
      "select case when A=1 then null else A end from T order by A",
      "select case when A=1 then 'x' when A=2 then 0.1 else 7 end from T order by A",
  };
  for (const char* const sql : queries) expect_alike(sql);
  execute(library, "insert into T(A,B,C,D,E) values(1,1.5,'x','2024-03-31 10:00:00',7)");
  execute(library, "insert into T(A,B,C,D,E) values(2,0.1,'y',null,'seven')");
  execute(library, "insert into T(A,B,C,D,E) values(3,null,null,'2024-04-01 00:00:00',null)");
  for (const char* const sql : queries) expect_alike(sql);
}

// A zero with a sign, which -0.0 is to no client: it is written without one.
TEST_F(SqliteColumnsTest, GiveAZeroWithoutItsSign) {
  execute(library, "create table T(A double, B numeric(10,2), C)");
  execute(library, "insert into T(A) values(0.0)");
  for (const std::string sql : {"select -A from T", "select -0.0", "select -sum(A) from T"}) {
    expect_alike(sql);
    EXPECT_EQ(automation::to_text(scalar(library, sql)), "0") << sql;
  }
  expect_alike("select null as A union all select -0.0");
}

TEST_F(SqliteColumnsTest, GiveDoublesExactly) {
  execute(library, "create table T(A double)");
  execute(library, "insert into T(A) values(0.1)");
  execute(library, "update T set A=A/3");
  EXPECT_EQ(scalar(library, "select A from T"), Value(0.1 / 3));
}

}  // namespace
}  // namespace tallyra::standins::ado::test
