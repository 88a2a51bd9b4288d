#include "automation/convert.h"
#include "tests/unit/standins/ado/postgresql/scratch_server.h"

namespace tallyra::standins::ado::test {
namespace {

using automation::Date;
using automation::Decimal;
using automation::Null;

class PostgresqlSessionTest : public ScratchServer {
 protected:
  PostgresqlSessionTest()
      : ScratchServer({"CREATE TABLE T(A integer PRIMARY KEY, B bpchar COLLATE \"C\", D timestamp(0))",
                       "CREATE TABLE U(A integer, Q double precision)"}) {}

  Object connection = open_connection();
};

Date day(int year, int month, int day_of_month, int hour = 0, int minute = 0, int second = 0) {
  return *automation::date_from_civil({year, month, day_of_month, hour, minute, second});
}

TEST_F(PostgresqlSessionTest, ValuesComeOutAsTheirColumnsAreDeclared) {
  struct Row {
    std::string_view expression;
    Value value;
    std::int32_t type;
  };
  const Row rows[] = {
      {"42", 42, 3},
      {"7::bigint", 7, 20},
      {"12345678901", std::int64_t{12345678901}, 20},
      {"7::smallint", std::int16_t{7}, 2},
      {"true", true, 11},
      {"false", false, 11},
      {"1.5::double precision", 1.5, 5},
      {"1/3.0::double precision", 1 / 3.0, 5},
      {"123456789012345.6::double precision", 123456789012345.6, 5},
      {"0.25::real", 0.25F, 4},
      {"1.2500::numeric(12,4)", *Decimal::parse("1.2500"), 131},
      {"'ab '::bpchar", "ab ", 202},
      {"'ab'::varchar(20)", "ab", 202},
      {"'2024-03-07 14:05:09'::timestamp", day(2024, 3, 7, 14, 5, 9), 135},
      {"'2024-03-07'::date", day(2024, 3, 7), 133},
      {"Null::double precision", Null{}, 5},
      {"Null::timestamp", Null{}, 135},
      {"count(*)", 1, 20},
      {"sum(1.5::double precision)", 1.5, 5},
      {"max('2024-03-07'::timestamp)", day(2024, 3, 7), 135},
  };
  for (const Row& row : rows) {
    const Object recordset = open_recordset(connection, "Select " + std::string(row.expression) + " As X");
    EXPECT_EQ(value(recordset, "X"), row.value) << row.expression;
    EXPECT_EQ(field(recordset, "X").get("Type"), Value(row.type)) << row.expression;
  }
}

TEST_F(PostgresqlSessionTest, ANameWithoutCapitalsComesInCapitals) {
  const Object recordset = open_recordset(connection, "Select A, B As Bee, D As \"Dee\" From T");
  EXPECT_EQ(field(recordset, 0).get("Name"), Value("A"));
  EXPECT_EQ(field(recordset, 1).get("Name"), Value("BEE"));
  EXPECT_EQ(field(recordset, 2).get("Name"), Value("Dee"));
}

TEST_F(PostgresqlSessionTest, TakesTheWordsOfTheComponent) {
  for (const char* const sql :
       {"Insert Into T (A,B,D) Values(1,'ten ',#2024/03/07#)", "Insert Into T (A,B,D) Values(2,'x','')",
        "Insert Into [T] ([A],[B],[D]) Values(3,'it''s',#2024/3/7 2:05:09 PM#)",
        "Insert Into U(A,Q) Values(1,1.5)", "Insert Into U(A,Q) Values(2,2.5)",
        "Update T Set T.B='y' Where T.A=2", "Delete U.* From U Inner Join T On U.A=T.A Where T.B='ten'"})
    execute(connection, sql);
  EXPECT_EQ(remaining(open_recordset(connection, "Select Top 2 A From T Order By A Desc"), 0), "3 2");
  EXPECT_EQ(scalar(connection, "Select B From T Where B='ten'"), Value("ten "));
  EXPECT_EQ(scalar(connection, "Select D From T Where B='y'"), Value(day(1900, 1, 1)));
  EXPECT_EQ(scalar(connection, "Select D From T Where A=3"), Value(day(2024, 3, 7, 14, 5, 9)));
  EXPECT_EQ(scalar(connection, "Select Count(*) From T Where D>='2024/03/07' And D<=#3/7/2024#"), Value(1));
  EXPECT_EQ(remaining(open_recordset(connection, "Select A From U"), 0), "2");
  execute(connection, "Delete * From U");
  execute(connection, "Delete T Where A=1");
  EXPECT_EQ(scalar(connection, "Select Count(*) From T"), Value(2));
}

TEST_F(PostgresqlSessionTest, TellsTheRowsAffected) {
  Value affected;
  execute(connection, "Insert Into T Values(1,'a',Null),(2,'b',Null),(3,'c',Null)");
  connection.call("Execute", "Update T Set B='z' Where A>=2", automation::ref(affected));
  EXPECT_EQ(affected, Value(2));
  connection.call("Execute", "Delete From T Where A=9", automation::ref(affected));
  EXPECT_EQ(affected, Value(0));
}

TEST_F(PostgresqlSessionTest, ErrorsHaveTheNumbersOfAProvider) {
  execute(connection, "Insert Into T Values(1,'a',Null)");
  struct Row {
    std::string_view sql;
    std::uint32_t number;
  };
  const Row rows[] = {
      {"Selekt 1", 0x80040E14},
      {"Select * From T Where (A=1", 0x80040E14},
      {"Select NOCOLUMN From T", 0x80040E14},
      {"Select * From NOTABLE", 0x80040E37},
      {"Insert Into T Values(1,'b',Null)", 0x80040E2F},
      {"Insert Into T Values(Null,'b',Null)", 0x80040E2F},
      {"Insert Into T Values('x','b',Null)", 0x80040E07},
      {"Insert Into T(A,D) Values(5,'31.01.2024')", 0x80040E07},
      {"Insert Into T(A) Values(99999999999)", 0x80040E57},
      {"Select 1/0", 0x80040E14},
      {"Select pg_read_file('/etc/passwd')", 0x80040E09},
      {"Copy T To '/tmp/x'", 0x80040E09},
      {"Delete From T; Delete From U", 0x80040E14},
  };
  for (const Row& row : rows)
    EXPECT_EQ(error_of([&] { execute(connection, row.sql); }), static_cast<std::int32_t>(row.number))
        << row.sql << ": " << description_of([&] { execute(connection, row.sql); });
  EXPECT_EQ(scalar(connection, "Select Count(*) From T"), Value(1));
}

TEST_F(PostgresqlSessionTest, AStatementOverItsLimitOfTimeIsAnError) {
  connection.put("CommandTimeout", 1);
  EXPECT_EQ(error_of([&] { execute(connection, "Select pg_sleep(20)"); }), -2147217871);
  connection.put("CommandTimeout", 0);
  EXPECT_EQ(scalar(connection, "Show statement_timeout"), Value("0"));
}

TEST_F(PostgresqlSessionTest, TheLimitOutlivesARollback) {
  connection.call("BeginTrans");
  connection.put("CommandTimeout", 7);
  execute(connection, "Insert Into U Values(1,1)");
  EXPECT_NE(error_of([&] { execute(connection, "Select 1/0"); }), 0);
  EXPECT_EQ(scalar(connection, "Show statement_timeout"), Value("7s"));
  connection.call("RollbackTrans");
  EXPECT_EQ(scalar(connection, "Show statement_timeout"), Value("7s"));
}

TEST_F(PostgresqlSessionTest, ALockThatIsNotGivenInTimeIsAnErrorThatLeavesTheTransaction) {
  execute(connection, "Insert Into T Values(1,'a',Null)");
  connection.call("BeginTrans");
  execute(connection, "Update T Set B='b' Where A=1");
  const Object other = open_connection("pqopt={options='-c lock_timeout=50'}");
  other.call("BeginTrans");
  execute(other, "Insert Into U Values(1,1)");
  EXPECT_EQ(error_of([&] { execute(other, "Update T Set B='c' Where A=1"); }), -2147467259);
  other.call("CommitTrans");
  connection.call("CommitTrans");
  EXPECT_EQ(scalar(connection, "Select Count(*) From U"), Value(1));
  EXPECT_EQ(scalar(connection, "Select B From T"), Value("b"));
}

TEST_F(PostgresqlSessionTest, ATableThatChangesIsSeenAnew) {
  for (int i = 0; i < 3; ++i) execute(connection, "Insert Into U Values(" + std::to_string(i) + ",1.5)");
  for (int i = 0; i < 3; ++i) open_recordset(connection, "Select * From U Where A=1");
  const Object other = open_connection();
  execute(other, "Alter Table U Add W varchar(5)");
  EXPECT_EQ(fields(open_recordset(connection, "Select * From U Where A=1")).get("Count"), Value(3));
  execute(connection, "Alter Table U Alter Q Type integer");
  for (const char* const quantity : {"1.5", "2.5", "3.5"})
    execute(connection, "Insert Into U(A,Q) Values(7," + std::string(quantity) + ")");
  EXPECT_EQ(remaining(open_recordset(connection, "Select Q From U Where A=7 Order By Q"), 0), "2 3 4");
}

// By what becomes of an empty text.
TEST_F(PostgresqlSessionTest, KnowsTheDateColumnsOfWhatABareNameLeadsTo) {
  server().administer(database(), "CREATE SCHEMA other");
  server().administer(database(), "CREATE TABLE other.V(D timestamp)");
  server().administer(database(), "CREATE DOMAIN moment AS timestamp(0)");
  execute(connection, "Create Table V(D varchar(20), E moment)");
  execute(connection, "Create Table \"an odd. one\"(D timestamp(0))");
  execute(connection, "Create View W As Select D As SINCE From \"an odd. one\"");
  const Object next = open_connection();
  execute(next, "Insert Into V(D,E) Values('','')");
  EXPECT_EQ(scalar(next, "Select D From V"), Value(""));
  EXPECT_EQ(scalar(next, "Select E From V"), Value(day(1900, 1, 1)));
  execute(next, "Insert Into W(SINCE) Values('')");
  execute(next, "Insert Into \"an odd. one\"(D) Values('')");
  EXPECT_EQ(scalar(next, "Select Count(*) From W Where SINCE='1900/1/1'"), Value(2));
}

TEST_F(PostgresqlSessionTest, TellsAboutItself) {
  const auto told = [&](const char* name) {
    return automation::to_text(automation::to_object(connection.call("Properties", name)).get("Value"));
  };
  EXPECT_EQ(told("DBMS Name"), "PostgreSQL");
  EXPECT_EQ(told("Current Catalog"), database());
  EXPECT_EQ(told("User Name"), "tallyra");
  EXPECT_EQ(told("Server Name"), "127.0.0.1");
  EXPECT_NE(told("DBMS Version").find("."), std::string::npos);
}

}  // namespace
}  // namespace tallyra::standins::ado::test
