#include "bench/shape.h"

#include <gtest/gtest.h>

namespace tallyra::bench {
namespace {

// "sql | literal | literal", with texts in quotes.
std::string shape_of(std::string_view sql) {
  ShapeReader reader;
  const Shape& shape = reader.read(sql);
  std::string text = shape.sql;
  for (const Literal& literal : shape.literals) {
    text += " | ";
    switch (literal.kind) {
      case Literal::Kind::text: text += "'" + std::string(shape.text(literal)) + "'"; break;
      case Literal::Kind::integer: text += std::to_string(literal.integer); break;
      case Literal::Kind::real: text += "real " + std::to_string(literal.real); break;
    }
  }
  return text;
}

TEST(Shape, BindsEveryLiteralAmongValues) {
  EXPECT_EQ(shape_of("Insert Into T(A,B,C,D) Values('x', -2.5,7,'')"),
            "Insert Into T(A,B,C,D) Values(?, ?,?,?) | 'x' | real -2.500000 | 7 | ''");
}

TEST(Shape, KeepsNullAndSumsAmongValues) {
  EXPECT_EQ(shape_of("insert into T values(Null,1+2,'a'||'b')"),
            "insert into T values(Null,?+2,?||'b') | 1 | 'a'");
}

TEST(Shape, BindsWhatFollowsAComparisonOrAnAssignment) {
  EXPECT_EQ(shape_of("Update T Set A='x',B = 2 Where C>='c' And D<>3 And E<-4"),
            "Update T Set A=?,B = ? Where C>=? And D<>? And E<? | 'x' | 2 | 'c' | 3 | -4");
}

TEST(Shape, LeavesLiteralsWhoseTextHasAMeaning) {
  for (const char* sql : {"Select 1,'x' From T Order By 1,2 LIMIT 5", "Select * From T Where K<>''",
                          "Select * From T Where A In ('x',2) And B Like 'y%'", "Select x'AB' From T2"})
    EXPECT_EQ(shape_of(sql), sql);
}

TEST(Shape, ReadsTheQuotesThatAreDoubledInATextAsOne) {
  EXPECT_EQ(shape_of("insert into T values('O''Hara','''')"), "insert into T values(?,?) | 'O'Hara' | '''");
}

TEST(Shape, LeavesNumbersThatNoPlainNumberHolds) {
  for (const char* sql : {"insert into T values(0x1F)", "insert into T values(99999999999999999999)",
                          "select * from T where A=1e999", "select * from T where A=1_0"})
    EXPECT_EQ(shape_of(sql), sql);
  EXPECT_EQ(shape_of("insert into T values(3.5E-02,1e2)"),
            "insert into T values(?,?) | real 0.035000 | real 100.000000");
}

TEST(Shape, LeavesTextsThatItDoesNotUnderstandAsTheyAre) {
  for (const char* sql : {"PRAGMA busy_timeout=3000", "create table T(A integer default 5)",
                          "select * from T where A='x' -- = 5", "select * from T where A='x' /* = 5 */",
                          "select * from T where A='x' and B=?", ""})
    EXPECT_EQ(shape_of(sql), sql);
}

TEST(Shape, TakesNothingInsideQuotedNamesForALiteral) {
  for (const char* sql :
       {"select [a='b'],\"c=5\",`d=6` from T", "select * from T where A=[5", "select 'open"})
    EXPECT_EQ(shape_of(sql), sql);
}

TEST(Shape, UsesItsRoomAgainWithoutALeftOver) {
  ShapeReader reader;
  reader.read("insert into T values('long before',2)");
  const Shape& shape = reader.read("insert into T values('x')");
  EXPECT_EQ(shape.sql, "insert into T values(?)");
  ASSERT_EQ(shape.literals.size(), 1U);
  EXPECT_EQ(shape.text(shape.literals[0]), "x");
}

}  // namespace
}  // namespace tallyra::bench
