#include "standins/ado/dialect/column_ref.h"

#include <gtest/gtest.h>

#include "tests/unit/standins/ado/dialect/cut_text.h"

namespace tallyra::tests::dialect {
namespace {

using standins::ado::dialect::binds;
using standins::ado::dialect::column_after;
using standins::ado::dialect::column_before;
using standins::ado::dialect::ColumnRef;
using standins::ado::dialect::Tokens;

// "T.A", "A", or nothing.
std::string shown(const Tokens& tokens, const ColumnRef& ref) {
  if (!ref) return "";
  const std::string column(tokens.name(ref.column));
  return ref.qualifier == 0 ? column : std::string(tokens.name(ref.qualifier)) + "." + column;
}

std::string before_equals(std::string_view sql) {
  const Tokens tokens = cut(sql);
  return shown(tokens, column_before(tokens, token_at(tokens, "=")));
}

std::string after_equals(std::string_view sql) {
  const Tokens tokens = cut(sql);
  return shown(tokens, column_after(tokens, token_at(tokens, "=")));
}

struct ColumnRow {
  std::string_view operand;
  std::string_view column;
};

// An operand means the same column on either side.
const ColumnRow rows[] = {
    {"A", "A"},         {"[a b]", "a b"}, {"T.A", "T.A"},      {"main.T.A", "T.A"}, {"(A)", "A"},
    {"((T.A))", "T.A"}, {"Max(A)", "A"},  {"min(T.A)", "T.A"}, {"'x'", ""},         {"1", ""},
    {"Sum(A)", ""},     {"Max(A,B)", ""}, {"(A,B)", ""},       {"f()", ""},         {"Max(f(A))", ""},
};

TEST(ColumnRef, IsTheWholeOperandLeftOfAnOperator) {
  for (const auto& [operand, column] : rows)
    EXPECT_EQ(before_equals("Where " + std::string(operand) + "=1"), column) << operand;
}

TEST(ColumnRef, IsTheWholeOperandRightOfAnOperator) {
  for (const auto& [operand, column] : rows)
    EXPECT_EQ(after_equals("Where 1=" + std::string(operand) + " And B<>2"), column) << operand;
}

TEST(ColumnRef, IsNonePartOfArithmetic) {
  for (const std::string_view sql : {"Where 1+A=2", "Where 1-T.A=2", "Where B*(A)=2"})
    EXPECT_EQ(before_equals(sql), "") << sql;
  for (const std::string_view sql : {"Where 2=A+1", "Where 2=T.A||'x'", "Where 2=(A)*B"})
    EXPECT_EQ(after_equals(sql), "") << sql;
  const Tokens tokens = cut("A*B+C,D");
  EXPECT_TRUE(binds(tokens, token_at(tokens, "*")));
  EXPECT_TRUE(binds(tokens, token_at(tokens, "+")));
  EXPECT_FALSE(binds(tokens, token_at(tokens, ",")));
}

TEST(ColumnRef, IsNoneAtTheEndsOfAText) {
  EXPECT_EQ(before_equals("=1"), "");
  EXPECT_EQ(before_equals(")=1"), "");
  EXPECT_EQ(after_equals("1="), "");
  EXPECT_EQ(after_equals("1=(A"), "");
}

}  // namespace
}  // namespace tallyra::tests::dialect
