#include "client/report/number_text.h"

#include <gtest/gtest.h>

namespace tallyra::client {
namespace {

TEST(ReportNumber, StandsInGroupsAsTheLanguageWritesThem) {
  EXPECT_EQ(value_text(1234567.891, english_words), "1,234,567.89");
  EXPECT_EQ(value_text(1234567.891, german_words), "1.234.567,89");
  EXPECT_EQ(value_text(999, chinese_words), "999.00");
  EXPECT_EQ(value_text(1000, english_words), "1,000.00");
}

TEST(ReportNumber, OfAQuantityHasNoZerosBehindIt) {
  EXPECT_EQ(quantity_text(1500, english_words), "1,500");
  EXPECT_EQ(quantity_text(0.25, german_words), "0,25");
  EXPECT_EQ(quantity_text(0.1 + 0.2, english_words), "0.3");
  EXPECT_EQ(quantity_text(100.0004, english_words), "100");
}

TEST(ReportNumber, HasASignWhereItSaysSomething) {
  EXPECT_EQ(value_text(-5, english_words), "−5.00");
  EXPECT_EQ(signed_value_text(5, english_words), "+5.00");
  EXPECT_EQ(signed_value_text(0, english_words), "0.00");
  EXPECT_EQ(value_text(-0.001, english_words), "0.00");
}

TEST(ReportNumber, ForAProgramHasNoRoundingInIt) {
  EXPECT_EQ(plain_number(-1234.5), "-1234.5");
  EXPECT_EQ(plain_number(0.1 + 0.2), "0.3");
  EXPECT_EQ(plain_number(0.3 - 0.1 - 0.2), "0");
}

}  // namespace
}  // namespace tallyra::client
