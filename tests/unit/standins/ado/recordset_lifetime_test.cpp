#include <vector>

#include "tests/unit/standins/ado/scratch_database.h"

namespace tallyra::standins::ado::test {
namespace {

class LifetimeTest : public ScratchDatabase {};

TEST_F(LifetimeTest, ManyConnectionsOneAfterTheOther) {
  for (int round = 0; round < 200; ++round) {
    const Object connection = open_connection();
    ASSERT_EQ(scalar(connection, "select 1"), Value(1));
  }
}

TEST_F(LifetimeTest, ManyConnectionsAtOnceGoInAnyOrder) {
  std::vector<Object> connections;
  std::vector<Object> recordsets;
  for (int i = 0; i < 20; ++i) {
    connections.push_back(open_connection());
    recordsets.push_back(open_recordset(connections.back(), "select 1 as N", {i % 2 ? 2 : 3, 3}));
  }
  for (std::size_t i = 0; i < connections.size(); i += 2) connections[i] = Object();
  for (const Object& recordset : recordsets) EXPECT_EQ(value(recordset, "N"), Value(1));
  for (std::size_t i = 1; i < connections.size(); i += 2) connections[i].call("Close");
  for (std::size_t i = 0; i < recordsets.size(); ++i)
    EXPECT_EQ(recordsets[i].get("State"), Value(i % 2 ? 0 : 1)) << i;
}

TEST_F(LifetimeTest, TheResultOfExecuteKeepsItsConnection) {
  Object connection = open_connection();
  execute(connection, "create table T(A integer)");
  execute(connection, "insert into T values(1),(2)");
  const Object rows = *connection.call("Execute", "select A from T order by A").get_if<Object>();
  connection = Object();
  EXPECT_EQ(remaining(rows, "A"), "1 2");
  rows.call("Requery");
  EXPECT_EQ(remaining(rows, "A"), "1 2");
}

TEST_F(LifetimeTest, AStatementWithoutRowsKeepsNothing) {
  Object connection = open_connection();
  connection.call("BeginTrans");
  const Value result = connection.call("Execute", "create table T(A integer)");
  connection = Object();
  EXPECT_EQ(error_of([&] { open_recordset(open_connection(), "select * from T"); }), -2147217865);
}

TEST_F(LifetimeTest, ManyFailuresInARow) {
  const Object connection = open_connection();
  const Object recordset = automation::create("ADODB.Recordset");
  for (int round = 0; round < 500; ++round) {
    ASSERT_NE(error_of([&] { execute(connection, "insert into NOSUCH values(1)"); }), 0);
    ASSERT_NE(error_of([&] { recordset.call("Open", "select nonsense from", connection); }), 0);
    ASSERT_NE(error_of([&] { automation::create("ADODB.Connection").call("Open", "DSN=none"); }), 0);
  }
  EXPECT_EQ(scalar(connection, "select 1"), Value(1));
}

}  // namespace
}  // namespace tallyra::standins::ado::test
