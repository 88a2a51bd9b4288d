#include "standins/ado/row_set.h"

#include <gtest/gtest.h>

#include "automation/bytes.h"
#include "automation/value.h"

namespace tallyra::standins::ado {
namespace {

using automation::Value;
using Kind = Cell::Kind;

std::vector<Column> columns(std::size_t count) {
  return std::vector<Column>(count);
}

TEST(RowSet, GivesEachCellAsTheValueOfItsKind) {
  const struct {
    Cell cell;
    Value value;
  } rows[] = {{Cell::null(), automation::Null{}},
              {Cell::of_integer(Kind::boolean, 1), true},
              {Cell::of_integer(Kind::uint8, 255), std::uint8_t{255}},
              {Cell::of_integer(Kind::int16, -2), std::int16_t{-2}},
              {Cell::of_integer(Kind::int32, 3), 3},
              {Cell::of_integer(Kind::int64, 4), std::int64_t{4}},
              {Cell::of_number(Kind::single, 0.5), 0.5F},
              {Cell::of_number(Kind::real, 1.5), 1.5},
              {Cell::of_integer(Kind::currency, 12500), automation::Currency{12500}},
              {Cell::of_number(Kind::date, 45382), automation::Date{45382}},
              {Cell::of_data(Kind::decimal, "1.50", 4), *automation::Decimal::parse("1.50")},
              {Cell::of_data(Kind::decimal, "many", 4), "many"},
              {Cell::of_data(Kind::text, "text", 4), "text"}};
  RowSet set(columns(1));
  for (const auto& row : rows) *set.add_row() = row.cell;
  ASSERT_EQ(set.row_count(), std::size(rows));
  for (std::size_t i = 0; i < std::size(rows); ++i) EXPECT_EQ(set.value(i, 0), rows[i].value);
}

TEST(RowSet, GivesBytesAsSuch) {
  RowSet set(columns(1));
  *set.add_row() = Cell::of_data(Kind::bytes, "a\0b", 3);
  const Value value = set.value(0, 0);
  ASSERT_TRUE(value.holds<automation::Opaque>());
  const auto* bytes = dynamic_cast<const automation::Bytes*>(value.get_if<automation::Opaque>()->get());
  ASSERT_NE(bytes, nullptr);
  EXPECT_EQ(bytes->content(), std::string_view("a\0b", 3));
}

TEST(RowSet, KeepsManyRowsOfAnyWidthInOrderAndInPlace) {
  for (const std::size_t width : {1U, 3U, 100U, 5000U}) {
    RowSet set(columns(width));
    Cell* const first = set.add_row();
    first[0] = Cell::of_integer(Kind::int32, 0);
    const int count = width == 5000 ? 20 : 10'000;
    for (int i = 1; i < count; ++i) {
      Cell* const row = set.add_row();
      row[0] = row[width - 1] = Cell::of_integer(Kind::int32, i);
    }
    ASSERT_EQ(set.row_count(), static_cast<std::size_t>(count));
    EXPECT_EQ(&set.cell(0, 0), first);
    for (int i = 1; i < count; ++i)
      ASSERT_EQ(set.value(static_cast<std::size_t>(i), width - 1), Value(i)) << "of " << width;
  }
}

}  // namespace
}  // namespace tallyra::standins::ado
