#include "standins/ado/cell_parsing.h"

#include <gtest/gtest.h>

namespace tallyra::standins::ado {
namespace {

using Kind = Cell::Kind;

class CellParsing : public testing::Test {
 protected:
  Cell parsed(DataType type, std::string_view text) { return parse_cell(type, text, arena_); }
  // The number in a cell of that kind.
  void expect_number(DataType type, std::string_view text, Kind kind, double number) {
    const Cell cell = parsed(type, text);
    ASSERT_EQ(cell.kind, kind) << text;
    EXPECT_EQ(cell.number, number) << text;
  }
  void expect_integer(DataType type, std::string_view text, Kind kind, std::int64_t integer) {
    const Cell cell = parsed(type, text);
    ASSERT_EQ(cell.kind, kind) << text;
    EXPECT_EQ(cell.integer, integer) << text;
  }
  void expect_text(DataType type, std::string_view text, Kind kind = Kind::text) {
    const Cell cell = parsed(type, text);
    ASSERT_EQ(cell.kind, kind) << text;
    EXPECT_EQ(cell.view(), text);
  }

  TextArena arena_;
};

TEST_F(CellParsing, AnIntegerIsOfTheNarrowestKindOfItsColumn) {
  expect_integer(DataType::small_int, "-32768", Kind::int16, -32768);
  expect_integer(DataType::small_int, "32768", Kind::int32, 32768);
  expect_integer(DataType::unsigned_tiny_int, "255", Kind::uint8, 255);
  expect_integer(DataType::unsigned_tiny_int, "-1", Kind::int32, -1);
  expect_integer(DataType::integer, "7", Kind::int32, 7);
  expect_integer(DataType::integer, "2147483648", Kind::int64, 2147483648);
  expect_integer(DataType::big_int, "7", Kind::int32, 7);
  expect_integer(DataType::boolean, "2", Kind::boolean, 1);
}

TEST_F(CellParsing, AWiderNumberStaysThatNumber) {
  expect_number(DataType::integer, "1.5", Kind::real, 1.5);
  expect_number(DataType::big_int, "1e30", Kind::real, 1e30);
  expect_number(DataType::single, "0.5", Kind::single, 0.5);
  expect_number(DataType::double_precision, "-1.25e-3", Kind::real, -0.00125);
  expect_number(DataType::numeric, "12345678901234567890123456789012", Kind::real,
                12345678901234567890123456789012.0);
  expect_text(DataType::numeric, "1234567890123456789.12", Kind::decimal);
}

TEST_F(CellParsing, AnythingElseStaysTheTextItIs) {
  for (const DataType type :
       {DataType::integer, DataType::boolean, DataType::double_precision, DataType::single,
        DataType::currency, DataType::time_stamp, DataType::numeric, DataType::text})
    for (const char* text : {"", "x", "12 pieces", " 1"}) expect_text(type, text);
  expect_text(DataType::text, "12");
}

TEST_F(CellParsing, MoneyHasFourPlacesExactly) {
  expect_integer(DataType::currency, "1.25", Kind::currency, 12500);
  expect_integer(DataType::currency, "-0.0001", Kind::currency, -1);
  expect_integer(DataType::currency, "1.25000000", Kind::currency, 12500);
  expect_integer(DataType::currency, "922337203685477.5807", Kind::currency, 9223372036854775807);
  expect_text(DataType::currency, "922337203685477.5808");
  expect_text(DataType::currency, "0.00001");
}

TEST_F(CellParsing, ADateIsOneInTheFormThatEnginesWrite) {
  expect_number(DataType::date, "2024-03-31", Kind::date, 45382);
  expect_number(DataType::time_stamp, "2024-03-31 12:00:00", Kind::date, 45382.5);
  expect_number(DataType::time_stamp, "2024-03-31T12:00:00.000", Kind::date, 45382.5);
  expect_number(DataType::time_stamp, "1899-12-29 06:00:00", Kind::date, -1.25);
  for (const char* text :
       {"2024-02-30", "2024-3-31", "2024/03/31", "2024-03-31 12:00", "2024-03-31 12:00:00.",
        "2024-03-31 24:00:00", "2024-03-31 12:00:00x", "2024-03-31 12:00:00.5x"})
    expect_text(DataType::time_stamp, text);
}

TEST_F(CellParsing, AFractionOfASecondCountsForwardWithinTheDay) {
  double later = 0;
  double earlier = 0;
  ASSERT_TRUE(parse_time_stamp("1899-12-29 06:00:00.5", later));
  ASSERT_TRUE(parse_time_stamp("1899-12-29 06:00:00", earlier));
  EXPECT_NEAR(earlier - later, 0.5 / 86400, 1e-12);
  ASSERT_TRUE(parse_time_stamp("2024-03-31 06:00:00.5", later));
  ASSERT_TRUE(parse_time_stamp("2024-03-31 06:00:00", earlier));
  EXPECT_NEAR(later - earlier, 0.5 / 86400, 1e-10);
}

}  // namespace
}  // namespace tallyra::standins::ado
