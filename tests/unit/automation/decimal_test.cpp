#include "automation/decimal.h"

#include <gtest/gtest.h>

#include <limits>

namespace tallyra::automation {
namespace {

template <class Number>
std::string text_of(const Number& number) {
  std::string text;
  number.append_text(text);
  return text;
}

TEST(DecimalNumber, IsReadAndWrittenWithEveryDigitAndWithoutZerosAtTheEnd) {
  const struct {
    const char* read;
    const char* written;
  } rows[] = {{"0", "0"},
              {"-0.00", "0"},
              {"+7", "7"},
              {"-123.4500", "-123.45"},
              {".5", "0.5"},
              {"5.", "5"},
              {"0.0000000000000000000000000001", "0.0000000000000000000000000001"},
              {"79228162514264337593543950335", "79228162514264337593543950335"},
              {"-7.9228162514264337593543950335", "-7.9228162514264337593543950335"}};
  for (const auto& [read, written] : rows) {
    const auto number = Decimal::parse(read);
    ASSERT_TRUE(number) << read;
    EXPECT_EQ(text_of(*number), written);
  }
}

TEST(DecimalNumber, WhatIsNoneOrDoesNotFitIsRefused) {
  for (const char* text : {"", "-", ".", "1e5", "1.2.3", " 1", "1 ", "--1", "1,5",
                           "79228162514264337593543950336", "0.00000000000000000000000000001"})
    EXPECT_FALSE(Decimal::parse(text)) << text;
}

TEST(DecimalNumber, IsMadeOfAnyInteger) {
  EXPECT_EQ(text_of(Decimal(std::numeric_limits<std::int64_t>::min())), "-9223372036854775808");
  EXPECT_EQ(text_of(Decimal(std::numeric_limits<std::int64_t>::max())), "9223372036854775807");
  EXPECT_EQ(Decimal(-5).words(), (std::array<std::uint32_t, 3>{5, 0, 0}));
  EXPECT_TRUE(Decimal(-5).negative());
}

TEST(DecimalNumber, DiffersByItsScaleButNotInWhatItIsWorth) {
  const Decimal long_form({150, 0, 0}, 2, false);
  const Decimal short_form({15, 0, 0}, 1, false);
  EXPECT_FALSE(long_form == short_form);
  EXPECT_EQ(text_of(long_form), text_of(short_form));
  EXPECT_EQ(long_form.to_double(), 1.5);
}

TEST(Money, IsWrittenExactly) {
  const struct {
    std::int64_t ten_thousandths;
    const char* text;
  } rows[] = {{0, "0"},
              {12500, "1.25"},
              {-1, "-0.0001"},
              {-10000, "-1"},
              {100, "0.01"},
              {std::numeric_limits<std::int64_t>::max(), "922337203685477.5807"},
              {std::numeric_limits<std::int64_t>::min(), "-922337203685477.5808"}};
  for (const auto& [ten_thousandths, text] : rows) EXPECT_EQ(text_of(Currency{ten_thousandths}), text);
  EXPECT_EQ(Currency{-12500}.to_double(), -1.25);
}

}  // namespace
}  // namespace tallyra::automation
