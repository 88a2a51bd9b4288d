#include <gtest/gtest.h>

#include <string>

#include "standins/ado/postgresql/shape.h"

// How one literal is taken out of "Insert Into T Values(...)" and out of a comparison.
namespace tallyra::standins::ado {
namespace {

// The kind and value of the literal; "left" where it stays in the text, "not understood" for what is none.
std::string taken(const std::string& sql) {
  Shape shape;
  if (!shape.read(sql)) return "not understood";
  if (shape.kinds().empty()) return "left";
  return std::string(1, static_cast<char>(shape.kinds()[0])) + " " + shape.values()[0];
}
std::string as_value(const std::string& literal) {
  return taken("Insert Into T Values(" + literal + ")");
}
std::string as_operand(const std::string& literal) {
  return taken("Update T Set A=B Where C=" + literal);
}

TEST(ShapeLiteral, IsAnIntegerUpToNineDigitsAndStaysWhereItHasMore) {
  EXPECT_EQ(as_value("999999999"), "i 999999999");
  EXPECT_EQ(as_value("-999999999"), "i -999999999");
  EXPECT_EQ(as_value("1000000000"), "left");
  EXPECT_EQ(as_value("1000000000.5"), "d 1000000000.5");
}

TEST(ShapeLiteral, IsADecimalWithAPointOrAnExponent) {
  EXPECT_EQ(as_value("1."), "d 1.");
  EXPECT_EQ(as_value(".5"), "d .5");
  EXPECT_EQ(as_value("-.5"), "left");
  EXPECT_EQ(as_value("1e5"), "d 1e5");
  EXPECT_EQ(as_value("1.5E+15"), "d 1.5E+15");
  for (const char* wrong : {"1e", "1e+", "1.2.3", "1x", "1$"})
    EXPECT_EQ(as_value(wrong), "not understood") << wrong;
}

// A number has no negative zero, and a parameter of another type may have one.
TEST(ShapeLiteral, StaysWhereItIsZeroWithASign) {
  for (const char* const zero : {"-0", "-0.0", "-00.", "-0e5", "-0.00E-1"}) {
    EXPECT_EQ(as_value(zero), "left") << zero;
    EXPECT_EQ(as_operand(zero), "left") << zero;
  }
  EXPECT_EQ(as_value("-0.01"), "d -0.01");
  EXPECT_EQ(as_value("-10"), "i -10");
  EXPECT_EQ(as_value("0.0"), "d 0.0");
  Shape shape;
  EXPECT_TRUE(shape.read("Insert Into T Values(-0.0)"));
  EXPECT_EQ(shape.repeat(), Repeat::by_its_text);
}

TEST(ShapeLiteral, IsATextWithSingleQuotesForItsDoubledOnes) {
  EXPECT_EQ(as_value("''"), "t ");
  EXPECT_EQ(as_value("''''"), "t '");
  EXPECT_EQ(as_value("'a''b'"), "t a'b");
  EXPECT_EQ(as_operand("'螺丝'"), "t 螺丝");
}

TEST(ShapeLiteral, IsWholeOnlyWhereTheValueEndsBehindIt) {
  EXPECT_EQ(as_operand("5"), "i 5");
  EXPECT_EQ(as_operand("5 And D=E"), "i 5");
  EXPECT_EQ(as_operand("5 + 1"), "left");
  EXPECT_EQ(as_operand("'a'||'b'"), "left");
  EXPECT_EQ(as_value("5*2"), "left");
}

}  // namespace
}  // namespace tallyra::standins::ado
