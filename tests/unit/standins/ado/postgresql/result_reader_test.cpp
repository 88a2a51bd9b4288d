#include "standins/ado/postgresql/result_reader.h"

#include <gtest/gtest.h>

#include "automation/date.h"
#include "tests/unit/standins/ado/postgresql/made_result.h"

namespace tallyra::standins::ado {
namespace {

// The only value of a result with one column of the type.
automation::Value read_as(Oid type, const char* text) {
  const Result result = made_result({{"A", type}}, {{text}});
  return read_rows(result.get())->value(0, 0);
}

TEST(PostgresqlResult, HasValuesOfTheTypesOfItsColumns) {
  using automation::Value;
  struct Row {
    Oid type;
    const char* text;
    Value value;
  };
  const Row rows[] = {
      {oid::integer, "-7", Value(std::int32_t{-7})},
      {oid::small_int, "7", Value(std::int16_t{7})},
      {oid::double_precision, "0.5", Value(0.5)},
      {oid::boolean, "t", Value(true)},
      {oid::boolean, "f", Value(false)},
      {oid::varying, " 5 ", Value(" 5 ")},
      {oid::blank_padded, "a", Value("a")},
      {oid::time_stamp, "1899-12-31 12:00:00", Value(automation::Date{1.5})},
      {oid::integer, nullptr, Value(automation::Null{})},
      {oid::varying, nullptr, Value(automation::Null{})},
  };
  for (const Row& row : rows)
    EXPECT_EQ(read_as(row.type, row.text), row.value) << row.type << " " << (row.text ? row.text : "null");
}

TEST(PostgresqlResult, HasBytesForTheirDigits) {
  const Result result = made_result({{"A", oid::bytes}}, {{"\\x00ff7a"}});
  const std::unique_ptr<RowSet> rows = read_rows(result.get());
  EXPECT_EQ(rows->columns()[0].type, DataType::long_bytes);
  EXPECT_EQ(rows->cell(0, 0).view(), std::string_view("\x00\xff\x7a", 3));
}

TEST(PostgresqlResult, DescribesItsColumnsByTypeAndLength) {
  constexpr int header = 4;
  const Result result = made_result({{"short_text", oid::varying, 40 + header},
                                     {"long_text", oid::long_text},
                                     {"money", oid::numeric, (12 << 16 | 2) + header},
                                     {"number", oid::integer}},
                                    {});
  const std::unique_ptr<RowSet> rows = read_rows(result.get());
  ASSERT_EQ(rows->columns().size(), 4U);
  EXPECT_EQ(rows->columns()[0].defined_size, 40);
  EXPECT_EQ(rows->columns()[1].defined_size, 255);
  EXPECT_EQ(rows->columns()[2].type, DataType::numeric);
  EXPECT_EQ(rows->columns()[2].precision, 12);
  EXPECT_EQ(rows->columns()[2].scale, 2);
  EXPECT_EQ(rows->columns()[3].type, DataType::integer);
  EXPECT_EQ(rows->row_count(), 0U);
}

TEST(PostgresqlResult, KeepsItsRowsWhenTheServersAnswerIsGone) {
  std::unique_ptr<RowSet> rows;
  {
    const Result result = made_result({{"A"}, {"B"}}, {{"a", "1"}, {nullptr, "2"}, {"", "3"}});
    rows = read_rows(result.get());
  }
  ASSERT_EQ(rows->row_count(), 3U);
  EXPECT_EQ(rows->value(0, 0), automation::Value("a"));
  EXPECT_TRUE(rows->value(1, 0).is_null());
  EXPECT_EQ(rows->value(2, 0), automation::Value(""));
  EXPECT_EQ(rows->value(2, 1), automation::Value("3"));
}

}  // namespace
}  // namespace tallyra::standins::ado
