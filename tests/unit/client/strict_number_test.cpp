#include "client/strict_number.h"

#include <gtest/gtest.h>

namespace tallyra::client {
namespace {

TEST(StrictNumber, IsReadAsItIsWritten) {
  EXPECT_EQ(strict_number("1.5"), 1.5);
  EXPECT_EQ(strict_number("+2"), 2);
  EXPECT_EQ(strict_number("-0.25"), -0.25);
  EXPECT_EQ(strict_number("1e3"), 1000);
}

TEST(StrictNumber, IsNothingThatMeansAnotherElsewhere) {
  for (const char* text :
       {"1,5", "$5", "(5)", " 5", "5 ", "5-", "", "1.5.2", "0x10", "inf", "+-5", "1 000", "€5"})
    EXPECT_EQ(strict_number(text), std::nullopt) << text;
}

TEST(StrictNumber, IsRefusedWithTheReason) {
  EXPECT_EQ(number_refusal("1,5"),
            "'1,5' is no number: a comma is no decimal point; write 1.5, and thousands without a mark");
  EXPECT_NE(number_refusal("$5").find("sign of a currency"), std::string::npos);
  EXPECT_NE(number_refusal("€5").find("sign of a currency"), std::string::npos);
  EXPECT_NE(number_refusal("(5)").find("-5"), std::string::npos);
  EXPECT_NE(number_refusal("five").find("digits"), std::string::npos);
}

}  // namespace
}  // namespace tallyra::client
