#include <array>

#include "tests/unit/standins/ado/scratch_database.h"

namespace tallyra::standins::ado::test {
namespace {

constexpr std::int32_t item_not_found = 3265;

class FieldTest : public ScratchDatabase {
 protected:
  FieldTest() {
    execute(connection, "create table T(PARTNO varchar(20), QTY double)");
    execute(connection, "insert into T values('P1',1.5),('P2',2.5)");
    recordset = open_recordset(connection, "select PARTNO,QTY,QTY*2 as Twice from T order by PARTNO", {3, 3});
  }

  Object connection = open_connection();
  Object recordset;
};

TEST_F(FieldTest, AreFoundByNameInAnyCaseAndByPosition) {
  EXPECT_EQ(fields(recordset).get("Count"), Value(3));
  for (const Value& key :
       {Value("PARTNO"), Value("partno"), Value("PartNo"), Value(0), Value(std::int16_t{0}), Value(0.0)})
    EXPECT_EQ(field(recordset, key).get("Name"), Value("PARTNO"));
  EXPECT_EQ(field(recordset, "TWICE").get("Name"), Value("Twice"));
  EXPECT_EQ(field(recordset, 2).get("Name"), Value("Twice"));
}

TEST_F(FieldTest, UnknownOnesAreNotFound) {
  for (const Value& key : {Value("NOSUCH"), Value(""), Value(3), Value(-1), Value(99), Value("0")})
    EXPECT_EQ(error_of([&] { field(recordset, key); }), item_not_found);
  EXPECT_EQ(error_of([&] { field(recordset, automation::Null{}); }), 3001);
  EXPECT_EQ(error_of([&] { fields(recordset).call("Item"); }), 450);
}

TEST_F(FieldTest, AreReachedThroughDefaultMembers) {
  const Object all = fields(recordset);
  const Value key("QTY");
  const std::array<automation::Argument, 1> arguments{automation::Argument(key)};
  const Object by_default = *all.invoke(0, automation::Access::read, arguments).get_if<Object>();
  EXPECT_EQ(by_default.invoke(0, automation::Access::read, {}), Value(1.5));
  const Object of_recordset = *recordset.invoke(0, automation::Access::read, arguments).get_if<Object>();
  EXPECT_EQ(of_recordset.get("Value"), Value(1.5));
  EXPECT_EQ(*recordset.call("Fields", "qty").get_if<Object>()->get("Name").get_if<std::string>(), "QTY");
}

TEST_F(FieldTest, ReadTheCurrentRowWhereverTheRecordsetMoves) {
  const Object part = field(recordset, "PARTNO");
  const automation::BoundMember qty(field(recordset, "QTY"), "Value");
  EXPECT_EQ(part.get("Value"), Value("P1"));
  EXPECT_EQ(qty.get(), Value(1.5));
  recordset.call("MoveNext");
  EXPECT_EQ(part.get("Value"), Value("P2"));
  EXPECT_EQ(qty.get(), Value(2.5));
  recordset.call("MoveNext");
  EXPECT_EQ(error_of([&] { qty.get(); }), 3021);
  recordset.call("MoveFirst");
  EXPECT_EQ(qty.get(), Value(1.5));
}

TEST_F(FieldTest, AreReadOnly) {
  EXPECT_EQ(error_of([&] { field(recordset, "QTY").put("Value", 9.0); }), 3251);
  EXPECT_EQ(value(recordset, "QTY"), Value(1.5));
}

TEST_F(FieldTest, EndWithTheirRecordset) {
  const Object all = fields(recordset);
  const Object part = field(recordset, "PARTNO");
  recordset.call("Close");
  for (const char* member : {"Value", "Name", "Type", "DefinedSize", "Precision", "NumericScale"})
    EXPECT_EQ(error_of([&] { part.get(member); }), 3704) << member;
  EXPECT_EQ(error_of([&] { part.put("Value", 1); }), 3704);
  EXPECT_EQ(error_of([&] { all.get("Count"); }), 3704);
  EXPECT_EQ(error_of([&] { all.call("Item", 0); }), 3704);
  recordset.call("Open", "select QTY from T", connection);
  EXPECT_EQ(error_of([&] { part.get("Value"); }), 3704);
}

TEST_F(FieldTest, EndWithTheConnection) {
  const Object part = field(recordset, "PARTNO");
  connection.call("Close");
  EXPECT_EQ(error_of([&] { part.get("Value"); }), 3704);
}

TEST_F(FieldTest, KeepWhatTheyNeedWhenTheRecordsetIsReleased) {
  recordset.call("MoveNext");
  const Object part = field(recordset, "PARTNO");
  const Object all = fields(recordset);
  recordset = Object();
  connection.call("Close");
  EXPECT_EQ(part.get("Value"), Value("P2"));
  EXPECT_EQ(all.get("Count"), Value(3));
}

TEST_F(FieldTest, OfTheSameNameGiveTheFirst) {
  const Object twins = open_recordset(connection, "select PARTNO as X, QTY as x from T order by 1");
  EXPECT_EQ(value(twins, "x"), Value("P1"));
  EXPECT_EQ(value(twins, 1), Value(1.5));
}

}  // namespace
}  // namespace tallyra::standins::ado::test
