#include "standins/corvane/value_literal.h"

#include <gtest/gtest.h>

#include <limits>

#include "automation/collection.h"
#include "automation/convert.h"

namespace tallyra::standins::corvane {
namespace {

using automation::Currency;
using automation::Date;
using automation::Decimal;
using automation::Null;
using automation::Value;

constexpr const char* none = nullptr;

Date moment(const automation::CivilTime& civil) {
  return automation::date_from_civil(civil).value();
}

struct Case {
  Value value;
  const char* literal;  // none: the value does not fit
};

void expect_literals(std::int32_t data_type, Dialect dialect, const std::vector<Case>& cases) {
  int position = 0;
  for (const Case& row : cases) {
    const auto literal = value_literal(row.value, column_kind(data_type), dialect);
    const std::string where = "type " + std::to_string(data_type) + ", row " + std::to_string(++position);
    EXPECT_EQ(literal.value_or("does not fit"), row.literal == none ? "does not fit" : row.literal) << where;
  }
}

TEST(ValueLiteral, TextColumnsTakeTheTextOfEverything) {
  const std::vector<Case> cases = {
      {"plain", "'plain'"},
      {"", "''"},
      {"O'Brien", "'O''Brien'"},
      {"'", "''''"},
      {"'); Drop Table PARTS; --", "'''); Drop Table PARTS; --'"},
      {"\\' Or 1=1", "'\\'' Or 1=1'"},
      {"入库单 №5 😀", "'入库单 №5 😀'"},
      {"two\nlines", "'two\nlines'"},
      {"#2024/01/01#", "'#2024/01/01#'"},
      {7, "'7'"},
      {0.1, "'0.1'"},
      {true, "'True'"},
      {moment({2024, 3, 31}), "'2024/03/31'"},
      {std::string("a\0b", 3), none},
  };
  for (const std::int32_t type : {8, 72, 129, 130, 200, 201, 202, 203})
    expect_literals(type, Dialect::sql_server, cases);
}

TEST(ValueLiteral, NumberColumnsTakeBareNumbers) {
  const std::vector<Case> cases = {
      {std::uint8_t{255}, "255"},
      {std::int16_t{-5}, "-5"},
      {2147483647, "2147483647"},
      {std::int64_t{9007199254740993}, "9007199254740993"},
      {0.1F, "0.1"},
      {1.0 / 3, "0.333333333333333"},
      {1e20, "1E+20"},
      {-0.5, "-0.5"},
      {Currency{12345}, "1.2345"},
      {Decimal::parse("79228162514264337593543950335").value(), "79228162514264337593543950335"},
      {true, "1"},
      {false, "0"},
      {"12.50", "12.5"},
      {"12345678901234567890.1234", "12345678901234567890.1234"},
      {" 7 ", "7"},
      {"1,234", "1234"},
      {"1e3", "1000"},
      {"", "Null"},
      {"  ", "Null"},
      {"1; Delete From PARTS", none},
      {"12abc", none},
      {"1e400", none},
      {moment({2024, 3, 31}), none},
      {std::numeric_limits<double>::infinity(), none},
      {std::numeric_limits<double>::quiet_NaN(), none},
      {std::numeric_limits<float>::infinity(), none},
  };
  for (const std::int32_t type : {4, 5, 6, 14, 131, 139}) expect_literals(type, Dialect::access, cases);
}

TEST(ValueLiteral, WholeNumberColumnsTakeNoFractions) {
  const std::vector<Case> cases = {
      {7, "7"},
      {7.0, "7"},
      {"7", "7"},
      {"7.0", "7"},
      {0.1 * 30, "3"},
      {1e15, "1E+15"},
      {-1, "-1"},
      {true, "1"},
      {"&H10", "16"},
      {"", "Null"},
      {7.5, none},
      {"7.5", none},
      {1e-20, none},
      {"seven", none},
      {Currency{15000}, none},
      {Currency{20000}, "2"},
  };
  for (const std::int32_t type : {2, 3, 16, 17, 18, 19, 20, 21})
    expect_literals(type, Dialect::access, cases);
}

TEST(ValueLiteral, DateColumnsTakeDatesAndTheirTexts) {
  const std::vector<Case> access = {
      {moment({2024, 3, 31}), "#2024/03/31#"},
      {moment({2024, 3, 31, 14, 5, 9}), "#2024/03/31 14:05:09#"},
      {"2024/03/31", "#2024/03/31#"},
      {"2024/3/1 4:05", "#2024/03/01 04:05:00#"},
      {"2024/03/31 00:00:00", "#2024/03/31#"},
      {"2024-03-31 14:05:09", "#2024/03/31 14:05:09#"},
      {"", "Null"},
      {"2024/02/30", none},
      {"2024/03/31# Or 1=1", none},
      {"03/31/2024", none},
      {45382, none},
      {45382.5, none},
      {true, none},
      {Date{3e6}, none},
  };
  for (const std::int32_t type : {7, 133, 135}) expect_literals(type, Dialect::access, access);
  expect_literals(
      135, Dialect::sql_server,
      {{moment({2024, 3, 31}), "'2024/03/31'"}, {"2024/03/31 14:05:09", "'2024/03/31 14:05:09'"}});
}

TEST(ValueLiteral, BooleanColumnsTakeOneAndZero) {
  expect_literals(11, Dialect::sql_server,
                  {{true, "1"},
                   {false, "0"},
                   {-1, "1"},
                   {0, "0"},
                   {2.5, "1"},
                   {"True", "1"},
                   {"false", "0"},
                   {"1", "1"},
                   {"", "Null"},
                   {"yes", none}});
}

TEST(ValueLiteral, ColumnsOfAnyKindTakeTheValueAsItIs) {
  expect_literals(
      12, Dialect::access,
      {{"a'b", "'a''b'"}, {"", "''"}, {7.5, "7.5"}, {true, "1"}, {moment({2024, 3, 31}), "#2024/03/31#"}});
}

TEST(ValueLiteral, ColumnsWithoutALiteralTakeNullOnly) {
  for (const std::int32_t type : {0, 9, 13, 128, 134, 204, 205, 8204})
    expect_literals(type, Dialect::sql_server, {{Null{}, "Null"}, {Value(), "Null"}, {"x", none}, {1, none}});
}

TEST(ValueLiteral, NullAndEmptyAreNullInEveryColumn) {
  for (std::int32_t type = 0; type < 300; ++type)
    expect_literals(type, Dialect::access, {{Null{}, "Null"}, {Value(), "Null"}});
}

TEST(ValueLiteral, ALongTextArrivesWhole) {
  std::string text;
  std::string expected = "'";
  for (int i = 0; i < 20000; ++i) {
    text += "ü'";
    expected += "ü''";
  }
  EXPECT_EQ(value_literal(text, ColumnKind::text, Dialect::access), expected + "'");
}

}  // namespace
}  // namespace tallyra::standins::corvane
