#include "standins/ado/postgresql/shape_scanner.h"

#include <gtest/gtest.h>

#include <string>

namespace tallyra::standins::ado {
namespace {

// Whether the text is understood, and then whether its shape is worth anything.
std::string judged(std::string_view sql) {
  Shape shape;
  ShapeScanner scanner(sql, shape);
  if (!scanner.scan()) return "not understood";
  return scanner.is_worth_a_shape() ? "worth it" : "not worth it";
}

TEST(ShapeScanner, FindsShapesOfStatementsThatReadOrWriteAFewRowsWorthIt) {
  for (const std::string_view sql :
       {"Select A From T", "insert into T values(1)", "Update T Set A=1", "DELETE FROM T"})
    EXPECT_EQ(judged(sql), "worth it") << sql;
  for (const std::string_view sql :
       {"Select A,Count(*) From T Group By A", "Truncate T", "With x As (Select 1) Select A From x", ""})
    EXPECT_EQ(judged(sql), "not worth it") << sql;
}

TEST(ShapeScanner, GivesUpWhereParenthesesDoNotMatch) {
  EXPECT_EQ(judged("Select A From T Where ((A=1) Or B=2)"), "worth it");
  EXPECT_EQ(judged("Select A From T Where ((A=1)"), "not understood");
  EXPECT_EQ(judged("Select A From T Where (A=1))"), "not understood");
  EXPECT_EQ(judged("Select A From T Where A=1)("), "not understood");
}

TEST(ShapeScanner, GivesUpOnNamesAndTextsThatDoNotEnd) {
  EXPECT_EQ(judged("Select \"A From T"), "not understood");
  EXPECT_EQ(judged("Select A From T Where A='x"), "not understood");
  EXPECT_EQ(judged("Select A From T Where A='x''"), "not understood");
}

TEST(ShapeScanner, TakesSoManyLiteralsAndNoMore) {
  const auto row_of = [](int count) {
    std::string sql = "Insert Into T Values(1";
    for (int i = 1; i < count; ++i) sql += ",1";
    return sql + ")";
  };
  EXPECT_EQ(judged(row_of(512)), "worth it");
  EXPECT_EQ(judged(row_of(513)), "not understood");
}

}  // namespace
}  // namespace tallyra::standins::ado
