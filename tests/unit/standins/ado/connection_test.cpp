#include "tests/unit/standins/ado/scratch_database.h"

namespace tallyra::standins::ado::test {
namespace {

class ConnectionTest : public ScratchDatabase {};

Object closed_connection() {
  return automation::create("ADODB.Connection");
}

TEST_F(ConnectionTest, StartsClosedWithTheDefaultsOfADO) {
  const Object connection = closed_connection();
  EXPECT_EQ(connection.get("State"), Value(0));
  EXPECT_EQ(connection.get("ConnectionString"), Value(""));
  EXPECT_EQ(connection.get("ConnectionTimeout"), Value(15));
  EXPECT_EQ(connection.get("CommandTimeout"), Value(30));
  EXPECT_EQ(connection.get("CursorLocation"), Value(2));
  EXPECT_EQ(connection.get("Provider"), Value("MSDASQL"));
}

TEST_F(ConnectionTest, OpensAndClosesAndOpensAgain) {
  const Object connection = closed_connection();
  for (int round = 0; round < 2; ++round) {
    connection.call("Open", connection_string(), "", "", -1);
    EXPECT_EQ(connection.get("State"), Value(1));
    connection.call("Close");
    EXPECT_EQ(connection.get("State"), Value(0));
  }
}

TEST_F(ConnectionTest, OpensWithThePropertyWhenNoStringIsPassed) {
  const Object connection = closed_connection();
  connection.put("ConnectionString", connection_string());
  connection.call("Open");
  EXPECT_EQ(connection.get("State"), Value(1));
}

TEST_F(ConnectionTest, KeepsTheStringItWasOpenedWith) {
  EXPECT_EQ(open_connection().get("ConnectionString"), Value(connection_string()));
}

TEST_F(ConnectionTest, OpensBehindTheOdbcProvider) {
  for (const std::string prefix : {"Provider=MSDASQL;", "provider = msdasql.1 ;", "Provider=\"MSDASQL\";"}) {
    const Object connection = closed_connection();
    connection.call("Open", prefix + connection_string());
    EXPECT_EQ(connection.get("State"), Value(1)) << prefix;
  }
  const Object extended = closed_connection();
  extended.call("Open", "Provider=MSDASQL;Extended Properties=\"" + connection_string() + "\"");
  EXPECT_EQ(extended.get("State"), Value(1));
}

TEST_F(ConnectionTest, FailedOpenLeavesItClosedAndUsable) {
  struct Row {
    std::string connection_string;
    std::int32_t number;
  };
  const Row rows[] = {
      {"DRIVER={SQLite3};Database=" + path("no/such/folder/x.db"), -2147467259},
      {"DRIVER={No Such Driver};Database=x", -2147467259},
      {"DSN=no-such-data-source", -2147467259},
      {"", -2147467259},
      {"nonsense", -2147467259},
      {"Provider=SQLOLEDB;Data Source=x", 3706},
      {"Provider=Microsoft.Jet.OLEDB.4.0;Data Source=x.mdb", 3706},
  };
  for (const Row& row : rows) {
    const Object connection = closed_connection();
    const auto open = [&] { connection.call("Open", row.connection_string); };
    EXPECT_EQ(error_of(open), row.number) << row.connection_string;
    EXPECT_NE(description_of(open), "") << row.connection_string;
    EXPECT_EQ(connection.get("State"), Value(0)) << row.connection_string;
    connection.call("Open", connection_string());
    EXPECT_EQ(connection.get("State"), Value(1)) << row.connection_string;
  }
}

TEST_F(ConnectionTest, TheProviderPropertyIsCheckedWhenItOpens) {
  const Object connection = closed_connection();
  connection.put("Provider", "SQLOLEDB");
  EXPECT_EQ(error_of([&] { connection.call("Open", connection_string()); }), 3706);
}

TEST_F(ConnectionTest, SecondOpenIsRefusedAndChangesNothing) {
  const Object connection = open_connection();
  execute(connection, "create table T(A integer)");
  EXPECT_EQ(error_of([&] { connection.call("Open", connection_string("other.db")); }), 3705);
  EXPECT_EQ(connection.get("State"), Value(1));
  EXPECT_EQ(connection.get("ConnectionString"), Value(connection_string()));
  EXPECT_EQ(scalar(connection, "select count(*) from T"), Value(0));
}

TEST_F(ConnectionTest, ClosedConnectionRefusesEveryUse) {
  const Object never_opened = closed_connection();
  const Object closed = open_connection();
  closed.call("Close");
  for (const Object& connection : {never_opened, closed})
    for (const char* member : {"BeginTrans", "CommitTrans", "RollbackTrans", "Close"}) {
      EXPECT_EQ(error_of([&] { connection.call(member); }), 3704) << member;
      EXPECT_EQ(error_of([&] { connection.call("Execute", "select 1"); }), 3704);
    }
}

TEST_F(ConnectionTest, ConnectingPropertiesAreFixedWhileOpen) {
  const Object connection = open_connection();
  for (const char* member : {"ConnectionString", "ConnectionTimeout", "Provider"})
    EXPECT_EQ(error_of([&] { connection.put(member, 1); }), 3705) << member;
  connection.put("CommandTimeout", 60);
  EXPECT_EQ(connection.get("CommandTimeout"), Value(60));
  EXPECT_EQ(scalar(connection, "select 1"), Value(1));
}

TEST_F(ConnectionTest, RefusesArgumentsThatMeanNothing) {
  const Object connection = closed_connection();
  EXPECT_EQ(error_of([&] { connection.call("Open", connection_string(), "", "", 77); }), 3001);
  EXPECT_EQ(error_of([&] { connection.call("Open", automation::Null{}); }), 3001);
  EXPECT_EQ(error_of([&] { connection.call("Open", "a", "b", "c", -1, 0); }), 450);
  EXPECT_EQ(error_of([&] { connection.put("CursorLocation", 1); }), 3001);
  EXPECT_EQ(error_of([&] { connection.put("ConnectionTimeout", -1); }), 3001);
  EXPECT_EQ(error_of([&] { connection.put("CommandTimeout", "soon"); }), 3001);
  EXPECT_EQ(error_of([&] { connection.get("NoSuchMember"); }), 438);
}

TEST_F(ConnectionTest, AcceptsOmittedArgumentsAndMembersInAnyCase) {
  const Object connection = closed_connection();
  connection.call("oPEN", connection_string(), automation::Missing{}, automation::Missing{},
                  automation::Missing{});
  EXPECT_EQ(connection.get("STATE"), Value(1));
}

TEST_F(ConnectionTest, ExecuteReportsTheRowsAffected) {
  const Object connection = open_connection();
  execute(connection, "create table T(A integer)");
  struct Row {
    std::string_view sql;
    std::int32_t affected;
  };
  const Row rows[] = {
      {"insert into T values(1),(2),(3)", 3},
      {"update T set A=A+1 where A>1", 2},
      {"delete from T where A=77", 0},
      {"create table U(A integer)", 0},
      {"delete from T", 3},
  };
  for (const Row& row : rows) {
    Value affected;
    connection.call("Execute", row.sql, automation::ref(affected), -1);
    EXPECT_EQ(affected, Value(row.affected)) << row.sql;
  }
}

TEST_F(ConnectionTest, ExecuteReturnsAReadOnlyForwardOnlyRecordsetForRows) {
  const Object connection = open_connection();
  const Object rows = *connection.call("Execute", "select 7 as N").get_if<Object>();
  EXPECT_EQ(rows.get("State"), Value(1));
  EXPECT_EQ(value(rows, "N"), Value(7));
  EXPECT_EQ(rows.get("CursorType"), Value(0));
  EXPECT_EQ(rows.get("LockType"), Value(1));
  EXPECT_EQ(rows.get("RecordCount"), Value(-1));
  EXPECT_TRUE(is_same_connection(rows.get("ActiveConnection"), connection));
}

TEST_F(ConnectionTest, ExecuteReturnsAStaticRecordsetWhenTheConnectionsCursorsAreTheClients) {
  const Object connection = open_connection();
  connection.put("CursorLocation", 3);
  const Object rows = *connection.call("Execute", "select 7 as N").get_if<Object>();
  EXPECT_EQ(rows.get("CursorLocation"), Value(3));
  EXPECT_EQ(rows.get("CursorType"), Value(3));
  EXPECT_EQ(rows.get("RecordCount"), Value(1));
}

TEST_F(ConnectionTest, ExecuteReturnsAClosedRecordsetWithoutRows) {
  const Object connection = open_connection();
  const Object none = *connection.call("Execute", "create table T(A integer)").get_if<Object>();
  EXPECT_EQ(none.get("State"), Value(0));
  EXPECT_EQ(error_of([&] { none.get("EOF"); }), 3704);
}

TEST_F(ConnectionTest, ExecuteReturnsNothingWhenNoRecordsAreWanted) {
  const Object connection = open_connection();
  const Value none = connection.call("Execute", "create table T(A integer)", automation::Missing{}, 128);
  EXPECT_EQ(none, Value(Object()));
}

TEST_F(ConnectionTest, ExecuteReadsAWholeTableByItsName) {
  const Object connection = open_connection();
  execute(connection, "create table T(A integer)");
  execute(connection, "insert into T values(5)");
  const Object rows = *connection.call("Execute", "T", automation::Missing{}, 2).get_if<Object>();
  EXPECT_EQ(value(rows, "A"), Value(5));
}

TEST_F(ConnectionTest, ExecuteRefusesABlankStatementAndWildOptions) {
  const Object connection = open_connection();
  EXPECT_EQ(error_of([&] { connection.call("Execute", ""); }), 3001);
  EXPECT_EQ(error_of([&] { connection.call("Execute", " \r\n"); }), 3001);
  EXPECT_EQ(error_of([&] { connection.call("Execute", automation::Null{}); }), 3001);
  EXPECT_EQ(error_of([&] { connection.call("Execute", "select 1", automation::Missing{}, -2); }), 3001);
  EXPECT_EQ(error_of([&] { connection.call("Execute", "select 1", automation::Missing{}, "x"); }), 3001);
  EXPECT_EQ(error_of([&] { connection.call("Execute"); }), 450);
}

TEST_F(ConnectionTest, NeverRunsTheFrontHalfOfAStatement) {
  const Object connection = open_connection();
  execute(connection, "create table T(A integer)");
  execute(connection, "insert into T values(1)");
  using namespace std::string_literals;
  EXPECT_EQ(error_of([&] { execute(connection, "delete from T\0 where A=2"s); }), -2147217900);
  EXPECT_EQ(scalar(connection, "select count(*) from T"), Value(1));
}

}  // namespace
}  // namespace tallyra::standins::ado::test
