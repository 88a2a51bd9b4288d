#include "tests/unit/standins/ado/scratch_database.h"

namespace tallyra::standins::ado::test {
namespace {

class CursorTest : public ScratchDatabase {
 protected:
  CursorTest() {
    execute(connection, "create table T(A integer, B varchar(20))");
    execute(connection, "insert into T values(1,'one'),(2,'two'),(3,'three')");
  }

  Object open(Cursor cursor) const {
    return open_recordset(connection, "select A,B from T order by A", cursor);
  }

  Object connection = open_connection();
};

TEST_F(CursorTest, TheCursorDecidesWhatTheClientSees) {
  struct Row {
    Cursor asked;
    std::int32_t type;
    std::int32_t record_count;
    std::int32_t position;
  };
  const Row rows[] = {
      {{2, 0}, 0, -1, -1},                                        // server, forward-only
      {{2, 1}, 3, 3, 1},                                          // keyset and dynamic become static
      {{2, 2}, 3, 3, 1},   {{2, 3}, 3, 3, 1}, {{3, 0}, 3, 3, 1},  // a client-side cursor is always static
      {{3, 1}, 3, 3, 1},   {{3, 2}, 3, 3, 1}, {{3, 3}, 3, 3, 1},
  };
  for (const Row& row : rows) {
    const Object recordset = open(row.asked);
    SCOPED_TRACE(std::to_string(row.asked.location) + ' ' + std::to_string(row.asked.type));
    EXPECT_EQ(recordset.get("CursorLocation"), Value(row.asked.location));
    EXPECT_EQ(recordset.get("CursorType"), Value(row.type));
    EXPECT_EQ(recordset.get("RecordCount"), Value(row.record_count));
    EXPECT_EQ(recordset.get("AbsolutePosition"), Value(row.position));
  }
}

TEST_F(CursorTest, RowsAreThoseOfTheMomentItOpened) {
  for (const std::int32_t location : {2, 3}) {
    const Object recordset = open({location, 3});
    execute(connection, "delete from T where A=3");
    EXPECT_EQ(recordset.get("RecordCount"), Value(3));
    EXPECT_EQ(remaining(recordset, "B"), "one two three");
    execute(connection, "insert into T values(3,'three')");
  }
}

TEST_F(CursorTest, AClientsRecordsetCanBeDetachedAndOutlivesItsConnection) {
  const Object recordset = open({3, 3});
  recordset.put("ActiveConnection", Object());
  EXPECT_EQ(recordset.get("ActiveConnection"), Value(Object()));
  connection.call("Close");
  EXPECT_EQ(recordset.get("State"), Value(1));
  EXPECT_EQ(recordset.get("RecordCount"), Value(3));
  EXPECT_EQ(remaining(recordset, "B"), "one two three");
  recordset.call("MoveFirst");
  EXPECT_EQ(value(recordset, "A"), Value(1));
  EXPECT_EQ(error_of([&] { recordset.call("Requery"); }), 3709);
  EXPECT_EQ(recordset.get("State"), Value(1));
  recordset.call("Close");
  EXPECT_EQ(recordset.get("State"), Value(0));
}

TEST_F(CursorTest, ADetachedRecordsetCanBeAttachedAgain) {
  const Object recordset = open({3, 3});
  recordset.put("ActiveConnection", Object());
  const Object other = open_connection();
  recordset.put("ActiveConnection", other);
  EXPECT_TRUE(is_same_connection(recordset.get("ActiveConnection"), other));
  connection.call("Close");
  EXPECT_EQ(recordset.get("State"), Value(1));
  other.call("Close");
  EXPECT_EQ(recordset.get("State"), Value(0));
}

TEST_F(CursorTest, AnOpenRecordsetIsNotAttachedToAClosedConnection) {
  const Object recordset = open({3, 3});
  const Object closed = automation::create("ADODB.Connection");
  EXPECT_EQ(error_of([&] { recordset.put("ActiveConnection", closed); }), 3709);
  EXPECT_TRUE(is_same_connection(recordset.get("ActiveConnection"), connection));
}

TEST_F(CursorTest, DetachingReleasesTheConnection) {
  const Object recordset = open({3, 3});
  connection.call("BeginTrans");
  execute(connection, "insert into T values(4,'four')");
  recordset.put("ActiveConnection", Object());
  connection = Object();  // the last reference: the transaction is discarded
  EXPECT_EQ(scalar(open_connection(), "select count(*) from T"), Value(3));
  EXPECT_EQ(remaining(recordset, "A"), "1 2 3");
}

TEST_F(CursorTest, AServersRecordsetCannotBeDetached) {
  const Object recordset = open({2, 3});
  EXPECT_EQ(error_of([&] { recordset.put("ActiveConnection", Object()); }), 3705);
  EXPECT_EQ(remaining(recordset, "A"), "1 2 3");
}

TEST_F(CursorTest, ClosingTheConnectionClosesItsRecordsets) {
  const Object first = open({2, 0});
  const Object second = open({2, 3});
  const Object third = open({3, 3});
  Object gone = open({2, 0});
  gone = Object();
  connection.call("Close");
  for (const Object& recordset : {first, second, third}) {
    EXPECT_EQ(recordset.get("State"), Value(0));
    EXPECT_EQ(error_of([&] { recordset.get("EOF"); }), 3704);
  }
  connection.call("Open", connection_string());
  second.call("Open", "select A from T order by A", connection);
  EXPECT_EQ(remaining(second, "A"), "1 2 3");
}

TEST_F(CursorTest, TheConnectionsLocationIsThatOfRecordsetsWithoutOne) {
  connection.put("CursorLocation", 3);
  const Object recordset = automation::create("ADODB.Recordset");
  recordset.call("Open", "select A from T", connection);
  EXPECT_EQ(recordset.get("CursorLocation"), Value(3));
  EXPECT_EQ(recordset.get("RecordCount"), Value(3));
}

TEST_F(CursorTest, ReadsManyRows) {
  execute(connection, "create table N(I integer, D double, S varchar(40))");
  execute(connection,
          "insert into N with recursive S(I) as (select 1 union all select I+1 from S where I<20000) "
          "select I, I*0.25, 'row number '||I from S");
  const Object recordset = open_recordset(connection, "select I,D,S from N order by I", {3, 3});
  EXPECT_EQ(recordset.get("RecordCount"), Value(20000));
  const Object i = field(recordset, "I");
  const Object d = field(recordset, "D");
  const Object s = field(recordset, "S");
  std::int32_t row = 0;
  for (; !is_true(recordset.get("EOF")); recordset.call("MoveNext")) {
    ++row;
    ASSERT_EQ(i.get("Value"), Value(row));
    ASSERT_EQ(d.get("Value"), Value(row * 0.25));
    ASSERT_EQ(s.get("Value"), Value("row number " + std::to_string(row)));
  }
  EXPECT_EQ(row, 20000);
}

}  // namespace
}  // namespace tallyra::standins::ado::test
