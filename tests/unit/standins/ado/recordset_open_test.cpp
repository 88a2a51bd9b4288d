#include "tests/unit/standins/ado/scratch_database.h"

namespace tallyra::standins::ado::test {
namespace {

class OpenRecordsetTest : public ScratchDatabase {
 protected:
  OpenRecordsetTest() {
    execute(connection, "create table T(A integer, B varchar(20))");
    execute(connection, "insert into T values(1,'one'),(2,'two'),(3,'three')");
  }

  Object connection = open_connection();
  Object recordset = automation::create("ADODB.Recordset");
};

TEST_F(OpenRecordsetTest, StartsClosedWithTheDefaultsOfADO) {
  EXPECT_EQ(recordset.get("State"), Value(0));
  EXPECT_EQ(recordset.get("CursorLocation"), Value(2));
  EXPECT_EQ(recordset.get("CursorType"), Value(0));
  EXPECT_EQ(recordset.get("LockType"), Value(1));
  EXPECT_EQ(recordset.get("Source"), Value(""));
  EXPECT_EQ(recordset.get("ActiveConnection"), Value(Object()));
}

TEST_F(OpenRecordsetTest, OpensOnAConnectionObject) {
  recordset.call("Open", "select A from T order by A", connection, 3, 1, -1);
  EXPECT_EQ(recordset.get("State"), Value(1));
  EXPECT_EQ(recordset.get("Source"), Value("select A from T order by A"));
  EXPECT_TRUE(is_same_connection(recordset.get("ActiveConnection"), connection));
  EXPECT_EQ(remaining(recordset, "A"), "1 2 3");
}

TEST_F(OpenRecordsetTest, OpensOnAConnectionString) {
  recordset.call("Open", "select A from T order by A", connection_string());
  EXPECT_EQ(remaining(recordset, "A"), "1 2 3");
  const Object own = *recordset.get("ActiveConnection").get_if<Object>();
  EXPECT_EQ(own.get("State"), Value(1));
}

TEST_F(OpenRecordsetTest, OpensWithItsProperties) {
  recordset.put("Source", "select A from T order by A");
  recordset.put("ActiveConnection", connection);
  recordset.put("CursorType", 3);
  recordset.put("LockType", 4);
  recordset.call("Open");
  EXPECT_EQ(recordset.get("RecordCount"), Value(3));
  EXPECT_EQ(recordset.get("LockType"), Value(4));
}

TEST_F(OpenRecordsetTest, ReopensWithWhatItWasGivenBefore) {
  recordset.call("Open", "select A from T order by A", connection, 3);
  recordset.call("Close");
  EXPECT_EQ(recordset.get("State"), Value(0));
  recordset.call("Open");
  EXPECT_EQ(remaining(recordset, "A"), "1 2 3");
}

TEST_F(OpenRecordsetTest, EveryLockTypeGoesWithEveryCursor) {
  for (const std::int32_t location : {2, 3})
    for (const std::int32_t type : {-1, 0, 1, 2, 3})
      for (const std::int32_t lock : {-1, 1, 2, 3, 4}) {
        const Object rows = automation::create("ADODB.Recordset");
        rows.put("CursorLocation", location);
        rows.call("Open", "select A from T order by A", connection, type, lock, -1);
        EXPECT_EQ(remaining(rows, "A"), "1 2 3") << location << ' ' << type << ' ' << lock;
      }
}

TEST_F(OpenRecordsetTest, NeedsAnOpenConnection) {
  const Object closed = automation::create("ADODB.Connection");
  EXPECT_EQ(error_of([&] { recordset.call("Open", "select 1"); }), 3709);
  EXPECT_EQ(error_of([&] { recordset.call("Open", "select 1", closed); }), 3709);
  EXPECT_EQ(error_of([&] { recordset.call("Open", "select 1", Object()); }), 3709);
  recordset.call("Open", "select 1 as N", connection);
  recordset.call("Close");
  connection.call("Close");
  EXPECT_EQ(error_of([&] { recordset.call("Open"); }), 3709);
}

TEST_F(OpenRecordsetTest, RefusesArgumentsThatMeanNothing) {
  const auto open = [&](const Value& source, const Value& on, const Value& type, const Value& lock,
                        const Value& options) {
    return error_of([&] { recordset.call("Open", source, on, type, lock, options); });
  };
  const Value on(connection);
  EXPECT_EQ(open("select 1", on, 4, 1, -1), 3001);
  EXPECT_EQ(open("select 1", on, -2, 1, -1), 3001);
  EXPECT_EQ(open("select 1", on, 3, 0, -1), 3001);
  EXPECT_EQ(open("select 1", on, 3, 5, -1), 3001);
  EXPECT_EQ(open("select 1", on, 3, 1, -5), 3001);
  EXPECT_EQ(open("select 1", on, "static", 1, -1), 3001);
  EXPECT_EQ(open("", on, 3, 1, -1), 3001);
  EXPECT_EQ(open(automation::Null{}, on, 3, 1, -1), 3001);
  EXPECT_EQ(open("select 1", recordset, 3, 1, -1), 3001);
  EXPECT_EQ(recordset.get("State"), Value(0));
  EXPECT_EQ(error_of([&] { recordset.put("CursorLocation", 4); }), 3001);
  EXPECT_EQ(error_of([&] { recordset.put("CursorType", 9); }), 3001);
  EXPECT_EQ(error_of([&] { recordset.put("LockType", 9); }), 3001);
}

TEST_F(OpenRecordsetTest, SecondOpenIsRefusedAndTheFirstGoesOn) {
  recordset.call("Open", "select A from T order by A", connection);
  recordset.call("MoveNext");
  EXPECT_EQ(error_of([&] { recordset.call("Open", "select B from T", connection); }), 3705);
  EXPECT_EQ(value(recordset, "A"), Value(2));
}

TEST_F(OpenRecordsetTest, PropertiesOfTheCursorAreFixedWhileOpen) {
  recordset.call("Open", "select A from T", connection);
  for (const char* member : {"CursorLocation", "CursorType", "LockType", "Source"})
    EXPECT_EQ(error_of([&] { recordset.put(member, 2); }), 3705) << member;
  EXPECT_EQ(error_of([&] { recordset.put("ActiveConnection", Object()); }), 3705);
  EXPECT_EQ(error_of([&] { recordset.put("ActiveConnection", connection); }), 3705);
}

TEST_F(OpenRecordsetTest, ClosedRecordsetRefusesEveryUse) {
  const Object closed = open_recordset(connection, "select A from T");
  closed.call("Close");
  for (const Object& rows : {recordset, closed}) {
    for (const char* member : {"EOF", "BOF", "RecordCount", "AbsolutePosition", "Fields"})
      EXPECT_EQ(error_of([&] { rows.get(member); }), 3704) << member;
    for (const char* member :
         {"MoveFirst", "MoveLast", "MoveNext", "MovePrevious", "Close", "Requery", "Update", "AddNew"})
      EXPECT_EQ(error_of([&] { rows.call(member); }), 3704) << member;
    EXPECT_EQ(error_of([&] { rows.call("Move", 1); }), 3704);
    EXPECT_EQ(error_of([&] { rows.put("AbsolutePosition", 1); }), 3704);
  }
}

TEST_F(OpenRecordsetTest, AFailedOpenLeavesItClosedAndUsable) {
  EXPECT_EQ(error_of([&] { recordset.call("Open", "select * from NOSUCH", connection); }), -2147217865);
  EXPECT_EQ(recordset.get("State"), Value(0));
  recordset.call("Open", "select A from T order by A", connection);
  EXPECT_EQ(remaining(recordset, "A"), "1 2 3");
}

TEST_F(OpenRecordsetTest, AStatementWithoutRowsRunsAndLeavesItClosed) {
  recordset.call("Open", "insert into T values(4,'four')", connection);
  EXPECT_EQ(recordset.get("State"), Value(0));
  EXPECT_EQ(error_of([&] { recordset.get("EOF"); }), 3704);
  EXPECT_EQ(scalar(connection, "select count(*) from T"), Value(4));
}

TEST_F(OpenRecordsetTest, ZeroRowsAreAnOpenRecordsetWithItsFieldsDescribed) {
  for (const std::int32_t location : {2, 3})
    for (const std::int32_t type : {0, 3}) {
      const Object none = open_recordset(connection, "select A,B from T where A=77", {location, type});
      EXPECT_EQ(none.get("State"), Value(1));
      EXPECT_TRUE(is_true(none.get("BOF")));
      EXPECT_TRUE(is_true(none.get("EOF")));
      EXPECT_EQ(fields(none).get("Count"), Value(2));
      EXPECT_EQ(field(none, 0).get("Name"), Value("A"));
      EXPECT_EQ(field(none, 0).get("Type"), Value(3));
      EXPECT_EQ(field(none, "b").get("Type"), Value(202));
      EXPECT_EQ(field(none, "b").get("DefinedSize"), Value(20));
      EXPECT_EQ(error_of([&] { value(none, "A"); }), 3021);
    }
}

TEST_F(OpenRecordsetTest, SeveralStayOpenWhileStatementsRun) {
  const Object first = open_recordset(connection, "select A from T order by A");
  const Object second = open_recordset(connection, "select B from T order by A", {2, 3});
  std::string seen;
  for (; !is_true(first.get("EOF")); first.call("MoveNext"), second.call("MoveNext")) {
    const std::string key = std::to_string(number(value(first, "A")));
    execute(connection, "update T set B=B||'!' where A=" + key);
    execute(connection, "insert into T values(1" + key + ",'more')");
    seen += *value(second, "B").get_if<std::string>() + ' ';
  }
  EXPECT_EQ(seen, "one two three ");
  EXPECT_EQ(scalar(connection, "select count(*) from T"), Value(6));
  EXPECT_EQ(scalar(connection, "select B from T where A=2"), Value("two!"));
}

TEST_F(OpenRecordsetTest, RequeryReadsAgainAndItsFieldsGoOn) {
  recordset.call("Open", "select A from T order by A desc", connection, 3);
  const Object column = field(recordset, "A");
  recordset.call("MoveLast");
  execute(connection, "insert into T values(9,'nine')");
  EXPECT_EQ(recordset.get("RecordCount"), Value(3));
  recordset.call("Requery");
  EXPECT_EQ(recordset.get("RecordCount"), Value(4));
  EXPECT_EQ(column.get("Value"), Value(9));
}

TEST_F(OpenRecordsetTest, RequeryOverOtherColumnsEndsTheOldFields) {
  recordset.call("Open", "select * from T", connection, 3);
  const Object column = field(recordset, "B");
  execute(connection, "drop table T");
  execute(connection, "create table T(A integer)");
  recordset.call("Requery");
  EXPECT_EQ(fields(recordset).get("Count"), Value(1));
  EXPECT_EQ(error_of([&] { column.get("Value"); }), 3704);
}

}  // namespace
}  // namespace tallyra::standins::ado::test
