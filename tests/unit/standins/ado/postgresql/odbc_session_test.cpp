#include "automation/convert.h"
#include "tests/unit/standins/ado/postgresql/scratch_server.h"

// PostgreSQL behind its ODBC driver, as under Wine: the same words, names, types, and no commit that is none.
namespace tallyra::standins::ado::test {
namespace {

class PostgresqlByOdbcTest : public ScratchServer {
 protected:
  PostgresqlByOdbcTest()
      : ScratchServer(
            {"CREATE TABLE T(A integer PRIMARY KEY, B bpchar COLLATE \"C\", V varchar(20), "
             "Q double precision, N numeric(12,4), S smallint, G bigint, F boolean, D timestamp(0))"}) {}

  std::string by_odbc(std::string_view protocol, std::string_view more = {}) const {
    return "Provider=MSDASQL;" + connection_string("BoolsAsChar=0;TextAsLongVarchar=0;MaxVarcharSize=255;") +
           "LFConversion=0;Protocol=" + std::string(protocol) + ";" + std::string(more);
  }
  Object open_by_odbc(std::string_view protocol = "7.4-2", std::string_view more = {}) const {
    Object connection = automation::create("ADODB.Connection");
    connection.call("Open", by_odbc(protocol, more));
    return connection;
  }
  Value stored() const { return scalar(open_connection(), "Select Count(*) From T"); }
};

TEST_F(PostgresqlByOdbcTest, GivesTheRowsThatTheLibraryGives) {
  const Object driver = open_by_odbc();
  const Object library = open_connection();
  execute(driver, "Insert Into [T] Values(1,'ten ','x',0.1,1.2500,7,8,true,#2024/03/07#)");
  execute(driver, "Insert Into T(A,D) Values(2,'2024/3/8')");
  execute(driver, "Delete T Where A=2");
  for (const char* const sql : {"Select Top 1 * From T Where D>='2024/03/07' Order By A Desc",
                                "Select Count(*) As C,Sum(Q) As Q,Max(D) As D,Sum(A) As A,1.5 As X From T",
                                "Select * From T Where A=9"}) {
    const Object one = open_recordset(driver, sql);
    const Object other = open_recordset(library, sql);
    const auto count = number(fields(one).get("Count"));
    ASSERT_EQ(Value(count), fields(other).get("Count"));
    for (std::int32_t i = 0; i < count; ++i) {
      SCOPED_TRACE(automation::to_text(field(other, i).get("Name")));
      EXPECT_EQ(field(one, i).get("Name"), field(other, i).get("Name"));
      EXPECT_EQ(field(one, i).get("Type"), field(other, i).get("Type"));
      EXPECT_EQ(field(one, i).get("DefinedSize"), field(other, i).get("DefinedSize"));
      if (!is_true(one.get("EOF"))) {
        EXPECT_EQ(value(one, i), value(other, i));
      }
    }
  }
}

TEST_F(PostgresqlByOdbcTest, ALostTransactionIsNotCommitted) {
  for (const char* const protocol : {"7.4-0", "7.4-1", "7.4-2"}) {
    SCOPED_TRACE(protocol);
    const Object connection = open_by_odbc(protocol);
    connection.call("BeginTrans");
    execute(connection, "Insert Into T(A) Values(1)");
    EXPECT_NE(error_of([&] { execute(connection, "Selekt 1"); }), 0);
    EXPECT_NE(error_of([&] { connection.call("CommitTrans"); }), 0);
    connection.call("RollbackTrans");
    EXPECT_EQ(stored(), Value(0));
  }
}

TEST_F(PostgresqlByOdbcTest, ALostConnectionIsNoCommit) {
  const Object connection = open_by_odbc();
  connection.call("BeginTrans");
  execute(connection, "Insert Into T(A) Values(1)");
  server().administer(database(),
                      "SELECT pg_terminate_backend(pid) FROM pg_stat_activity WHERE usename='tallyra'");
  EXPECT_NE(error_of([&] { execute(connection, "Insert Into T(A) Values(2)"); }), 0);
  EXPECT_NE(error_of([&] { connection.call("CommitTrans"); }), 0);
  EXPECT_EQ(stored(), Value(0));
}

TEST_F(PostgresqlByOdbcTest, ATransactionThatCannotBeginIsNone) {
  constexpr std::int32_t another_is_open = -2147168237;
  const Object connection = open_by_odbc();
  server().administer(database(),
                      "SELECT pg_terminate_backend(pid) FROM pg_stat_activity WHERE usename='tallyra'");
  EXPECT_NE(error_of([&] { connection.call("BeginTrans"); }), 0);
  EXPECT_NE(error_of([&] { connection.call("BeginTrans"); }), another_is_open);
}

TEST_F(PostgresqlByOdbcTest, ACommitThatIsOneIsMade) {
  const Object connection = open_by_odbc();
  connection.call("BeginTrans");
  execute(connection, "Insert Into T(A) Values(1)");
  EXPECT_NE(error_of([&] { execute(connection, "Insert Into T(A) Values(1)"); }), 0);
  execute(connection, "Insert Into T(A) Values(2)");
  connection.call("CommitTrans");
  EXPECT_EQ(stored(), Value(2));
}

TEST_F(PostgresqlByOdbcTest, WhatReachesBeyondIsRefused) {
  const Object connection = open_by_odbc();
  EXPECT_EQ(error_of([&] { execute(connection, "Copy T To '/tmp/x'"); }), -2147217911);
  EXPECT_EQ(error_of([&] { execute(connection, "Delete From T; Select 1"); }), -2147217900);
}

TEST_F(PostgresqlByOdbcTest, AStringThatReachesBeyondIsRefused) {
  for (const char* const more :
       {"ConnSettings=Set application_name='x'", "connsettings={Set application_name='x'}",
        "A6=Set application_name='x'", "CommLog=1", "Debug={1}", "B2=1", "B3=1", "CX=1c305008b",
        "pqopt={sslkey=engine:x}", "pqopt={options='-c Local_Pre\\load_Libraries=x'}", "D5={service=x}"})
    EXPECT_EQ(error_of([&] { open_by_odbc("7.4-2", more); }), -2147217911) << more;
}

TEST_F(PostgresqlByOdbcTest, AStringThatLeavesThemOffIsTaken) {
  for (const char* const more : {"ConnSettings=", "ConnSettings={};CommLog=0;Debug=0;B2=0;B3=0",
                                 "pqopt={options='-c lock_timeout=10000' application_name='a b'}"})
    EXPECT_EQ(scalar(open_by_odbc("7.4-2", more), "Select 1"), Value(1)) << more;
}

TEST_F(PostgresqlByOdbcTest, TheCompletedStringOpensAgain) {
  const Object property = automation::to_object(open_by_odbc().call("Properties", "Extended Properties"));
  const std::string completed = automation::to_text(property.get("Value"));
  const Object again = automation::create("ADODB.Connection");
  again.call("Open", "Provider=MSDASQL;" + completed);
  EXPECT_EQ(scalar(again, "Select 1"), Value(1)) << completed;
}

}  // namespace
}  // namespace tallyra::standins::ado::test
