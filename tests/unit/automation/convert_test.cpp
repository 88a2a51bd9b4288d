#include "automation/convert.h"

#include <gtest/gtest.h>

#include "automation/collection.h"
#include "tests/unit/automation/error_of.h"

namespace tallyra::automation {
namespace {

class Bytes : public OpaqueData {
 public:
  std::string_view kind() const override { return "bytes"; }
};

// An object with a default value.
class Quantity : public Implements<Quantity> {
 public:
  static const MemberTable<Quantity>& members() {
    static const MemberTable<Quantity> table{{default_member, "Value", property<&Quantity::value>}};
    return table;
  }
  Value value() { return "2.5"; }
};

TEST(Conversion, EveryKindHasOneText) {
  const struct {
    Value value;
    const char* text;
  } rows[] = {{Value(), ""},
              {true, "True"},
              {false, "False"},
              {std::uint8_t{255}, "255"},
              {std::int16_t{-32768}, "-32768"},
              {std::int32_t{-2147483647 - 1}, "-2147483648"},
              {std::int64_t{-9223372036854775807 - 1}, "-9223372036854775808"},
              {1.5F, "1.5"},
              {1.5, "1.5"},
              {Currency{12345}, "1.2345"},
              {Currency{12300}, "1.23"},
              {Currency{10000}, "1"},
              {Currency{-1}, "-0.0001"},
              {Currency{0}, "0"},
              {Currency{9223372036854775807}, "922337203685477.5807"},
              {Decimal({150, 0, 0}, 2, false), "1.5"},
              {Decimal({10000, 0, 0}, 2, false), "100"},
              {Decimal({0, 0, 0}, 2, true), "0"},
              {Decimal({1, 0, 0}, 28, false), "0.0000000000000000000000000001"},
              {Decimal({0xFFFFFFFF, 0xFFFFFFFF, 0xFFFFFFFF}, 0, true), "-79228162514264337593543950335"},
              {Date{45358}, "2024/03/07"},
              {Date{45358.58690972}, "2024/03/07 14:05:09"},
              {Date{45358.9999999}, "2024/03/08"},
              {Date{0}, "1899/12/30"},
              {Date{0.5}, "1899/12/30 12:00:00"},
              {Date{-1.25}, "1899/12/29 06:00:00"},
              {Date{-657434}, "0100/01/01"},
              {Date{2958465}, "9999/12/31"},
              {"中文 text", "中文 text"},
              {make_object<Quantity>(), "2.5"}};
  for (const auto& [value, text] : rows) EXPECT_EQ(to_text(value), text);
}

TEST(Conversion, WhatHasNoTextIsAnError) {
  EXPECT_EQ(error_of([] { to_text(Null{}); }), error_number::invalid_null);
  EXPECT_EQ(error_of([] { to_text(Missing{}); }), error_number::type_mismatch);
  EXPECT_EQ(error_of([] { to_text(Opaque(std::make_shared<Bytes>())); }), error_number::type_mismatch);
  EXPECT_EQ(error_of([] { to_text(Object()); }), error_number::object_not_set);
  EXPECT_EQ(error_of([] { to_text(make_object<Collection>()); }), error_number::wrong_argument_count);
  EXPECT_EQ(error_of([] { to_text(Date{3e6}); }), error_number::invalid_argument);
  EXPECT_EQ(error_of([] { to_text(Date{-657435}); }), error_number::invalid_argument);
}

TEST(Conversion, NullAddsNothingToAConcatenation) {
  std::string text = "a";
  append_concatenated(text, Null{});
  append_concatenated(text, 5);
  EXPECT_EQ(text, "a5");
}

TEST(Conversion, IntegersRoundHalvesToTheEvenNeighbour) {
  const struct {
    Value value;
    std::int32_t result;
  } rows[] = {{"12.5", 12},
              {"13.5", 14},
              {"0.5", 0},
              {"2.5", 2},
              {"-12.5", -12},
              {"-13.5", -14},
              {2.5, 2},
              {3.5, 4},
              {2.51, 3},
              {-2.5, -2},
              {true, -1},
              {Value(), 0},
              {Date{45358.6}, 45359},
              {Currency{25000}, 2},
              {"32767.4", 32767},
              {"-32768.5", -32768}};
  for (const auto& [value, result] : rows) {
    EXPECT_EQ(to_int16(result > 32767 ? Value(0) : value), result > 32767 ? 0 : result);
    EXPECT_EQ(to_int32(value), result);
  }
}

TEST(Conversion, MoneyAndDecimalsRoundByEveryDigitTheyHave) {
  const struct {
    Value value;
    std::int32_t result;
  } rows[] = {{Currency{15000}, 2},
              {Currency{-15000}, -2},
              {Currency{-5000}, 0},
              {Currency{25001}, 3},
              {*Decimal::parse("2.5"), 2},
              {*Decimal::parse("3.5"), 4},
              {*Decimal::parse("2.50000000000000000001"), 3},
              {*Decimal::parse("-2.50000000000000000001"), -3},
              {*Decimal::parse("2.4999999999999999999"), 2},
              {*Decimal::parse("-0.4"), 0}};
  for (const auto& [value, result] : rows) EXPECT_EQ(to_int32(value), result) << to_text(value);
}

TEST(Conversion, AnAbsoluteValueIsTheTextOfANumberWithoutItsSign) {
  const struct {
    Value value;
    const char* text;
  } rows[] = {{-2.5, "2.5"},
              {2.5, "2.5"},
              {-1.0 / 30, "3.33333333333333E-02"},
              {Currency{-12300}, "1.23"},
              {Null{}, ""},
              {Value(), "0"},
              {" -05.50 ", "5.5"},
              {*Decimal::parse("-7.10"), "7.1"}};
  for (const auto& [value, text] : rows) {
    std::string magnitude;
    append_magnitude(magnitude, value);
    EXPECT_EQ(magnitude, text);
  }
  EXPECT_EQ(error_of([] {
              std::string magnitude;
              append_magnitude(magnitude, "abc");
            }),
            error_number::type_mismatch);
}

TEST(Conversion, IntegersOutOfRangeOverflow) {
  for (const Value& value :
       {Value("32767.5"), Value("32768"), Value("-32769"), Value(1e300), Value("&H10000")})
    EXPECT_EQ(error_of([&] { to_int16(value); }), error_number::overflow);
  for (const Value& value : {Value("2147483647.5"), Value("2147483648"), Value(-3e9), Value("&H1FFFFFFFF")})
    EXPECT_EQ(error_of([&] { to_int32(value); }), error_number::overflow);
  EXPECT_EQ(error_of([] { to_single(1e39); }), error_number::overflow);
}

TEST(Conversion, ARadixTextGivesTheBitsOfTheTarget) {
  EXPECT_EQ(to_int16("&HFFFF"), -1);
  EXPECT_EQ(to_int32("&HFFFF"), 65535);
  EXPECT_EQ(to_int32("&HFFFFFFFF"), -1);
}

TEST(Conversion, BooleansComeFromNumbersAndWords) {
  for (const Value& value :
       {Value("True"), Value("true"), Value("#TRUE#"), Value(2), Value("0.1"), Value(true)})
    EXPECT_TRUE(to_boolean(value));
  for (const Value& value : {Value("False"), Value("#false#"), Value(0), Value("0"), Value()})
    EXPECT_FALSE(to_boolean(value));
  EXPECT_EQ(error_of([] { to_boolean("yes"); }), error_number::type_mismatch);
}

TEST(Conversion, DatesComeFromTheirOwnTextsOnly) {
  const struct {
    const char* text;
    double serial;
  } rows[] = {{"2024/03/07", 45358},
              {"2024-03-07", 45358},
              {"2024/3/7", 45358},
              {" 2024/03/07 ", 45358},
              {"2024/03/07 12:00:00", 45358.5},
              {"2024/03/07 12:00", 45358.5},
              {"1899/12/30", 0},
              {"1899/12/29 06:00:00", -1.25},
              {"2024/02/29", 45351}};
  for (const auto& [text, serial] : rows) EXPECT_EQ(to_date(text).serial, serial) << text;
  for (const char* text :
       {"", "07.03.2024", "3/7/2024", "2024/02/30", "2023/02/29", "2024/13/01", "2024/00/01", "2024/03-07",
        "2024/03/07x", "2024/03/07 24:00:00", "2024/03/07 12", "24/03/07", "45358", "2024/03", "0001/01/01"})
    EXPECT_EQ(error_of([&] { to_date(text); }), error_number::type_mismatch) << text;
  EXPECT_EQ(to_date(45358).serial, 45358);
  EXPECT_EQ(error_of([] { to_date(Null{}); }), error_number::invalid_null);
}

TEST(Conversion, DaysAreAddedAcrossMonthsYearsAndDayZero) {
  const struct {
    const char* day;
    const char* next;
  } rows[] = {{"2024/02/28", "2024/02/29"},
              {"2024/12/31", "2025/01/01"},
              {"1899/12/29", "1899/12/30"},
              {"1899/12/29 06:00:00", "1899/12/30 06:00:00"}};
  for (const auto& [day, next] : rows) EXPECT_EQ(to_text(add_days(to_date(day), 1)), next);
  EXPECT_EQ(error_of([] { add_days(Date{2958465}, 1); }), error_number::invalid_argument);
}

TEST(Conversion, ComparisonsWithNullAreNotTrue) {
  EXPECT_FALSE(equals_number(Null{}, 1));
  EXPECT_FALSE(exceeds_number(Null{}, 0));
  EXPECT_TRUE(equals_number("1", 1));
  EXPECT_TRUE(equals_number(Currency{10000}, 1));
  EXPECT_FALSE(equals_number(true, 1));
  EXPECT_TRUE(exceeds_number(0.5, 0));
  EXPECT_EQ(error_of([] { equals_number("one", 1); }), error_number::type_mismatch);
}

TEST(Conversion, AnObjectIsRequiredWhereOneIs) {
  EXPECT_EQ(error_of([] { to_object("text"); }), error_number::object_required);
  EXPECT_FALSE(to_object(Object()));
}

TEST(Conversion, DecimalsAreReadExactly) {
  const struct {
    const char* text;
    const char* result;
  } rows[] = {{"123.4500", "123.45"},
              {"-0.5", "-0.5"},
              {"79228162514264337593543950335", "79228162514264337593543950335"},
              {"12345678901234567.8901", "12345678901234567.8901"}};
  for (const auto& [text, result] : rows) EXPECT_EQ(to_text(Decimal::parse(text).value()), result);
  for (const char* text : {"", "x", "1.2.3", "79228162514264337593543950336", "1e5", "-"})
    EXPECT_FALSE(Decimal::parse(text)) << text;
  EXPECT_EQ(to_double(Decimal::parse("0.1").value()), 0.1);
}

}  // namespace
}  // namespace tallyra::automation
