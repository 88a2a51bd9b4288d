#include "company/cell_literal.h"

#include <gtest/gtest.h>

#include <limits>

#include "automation/date.h"
#include "company/options.h"

namespace {

using namespace tallyra::company;
using tallyra::automation::Value;
namespace automation = tallyra::automation;
namespace schema = tallyra::schema;

constexpr schema::Column text{.name = "NOTES", .kind = schema::Kind::text, .length = 20};
constexpr schema::Column number{.name = "QTY", .kind = schema::Kind::number};
constexpr schema::Column integer{.name = "SN", .kind = schema::Kind::integer};
constexpr schema::Column date{.name = "ADDDT", .kind = schema::Kind::date};

std::string literal(const schema::Column& column, const Value& value) {
  std::string out;
  append_literal(out, column, value);
  return out;
}

Value moment(int year, int month, int day, int hour, int minute, int second) {
  return *automation::date_from_civil({year, month, day, hour, minute, second});
}

TEST(CellLiteral, EveryValueHasOneForm) {
  EXPECT_EQ(literal(text, "it's"), "'it''s'");
  EXPECT_EQ(literal(text, "10 "), "'10 '");
  EXPECT_EQ(literal(text, ""), "''");
  EXPECT_EQ(literal(number, 0.1), "0.1");
  EXPECT_EQ(literal(number, 1.0 / 3), "0.3333333333333333");
  EXPECT_EQ(literal(number, 123456789012345.6), "123456789012345.6");
  EXPECT_EQ(literal(number, 1e300), "1e+300");
  EXPECT_EQ(literal(number, -0.0), "0");
  EXPECT_EQ(literal(number, 5), "5");
  EXPECT_EQ(literal(integer, 5.0), "5");
  EXPECT_EQ(literal(integer, -7), "-7");
  EXPECT_EQ(literal(date, moment(2024, 2, 29, 0, 0, 0)), "'2024-02-29 00:00:00'");
  EXPECT_EQ(literal(date, moment(1899, 12, 29, 14, 5, 9)), "'1899-12-29 14:05:09'");
}

TEST(CellLiteral, NullIsNullInEveryColumn) {
  for (const auto& column : {text, number, integer, date})
    EXPECT_EQ(literal(column, automation::Null{}), "NULL");
}

TEST(CellLiteral, WhatAColumnCannotHoldElsewhereIsRefusedByName) {
  struct Case {
    schema::Column column;
    Value value;
    const char* text;
  };
  const Case cases[] = {
      {number, "abc", "QTY holds 'abc', which is no number"},
      {integer, "", "SN holds '', which is no number"},
      {number, std::numeric_limits<double>::infinity(), "QTY holds 'INF', which is no number"},
      {date, "soon", "ADDDT holds 'soon', which is no date"},
      {date, 45322, "ADDDT holds '45322', which is no date"},
  };
  for (const Case& it : cases) {
    try {
      literal(it.column, it.value);
      ADD_FAILURE() << it.text;
    } catch (const Refusal& refusal) {
      EXPECT_STREQ(refusal.what(), it.text);
    }
  }
}

}  // namespace
