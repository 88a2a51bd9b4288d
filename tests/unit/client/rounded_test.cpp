#include "client/rounded.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace tallyra::client {
namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();

TEST(RoundedNumber, IsWhatIsWrittenWithSoManyDecimals) {
  EXPECT_EQ(rounded(0.1 + 0.2, 6), 0.3);
  EXPECT_EQ(rounded(2756396.6300000004, 6), 2756396.63);
  EXPECT_EQ(rounded(2.5, 0), 2);
  EXPECT_EQ(rounded(1.7e308, 6), 1.7e308);
  EXPECT_EQ(rounded(-infinity, 6), -infinity);
}

TEST(RoundedNumber, IsNeverANothingWithASign) {
  EXPECT_EQ(rounded(0.1 + 0.2 - 0.3, 6), 0);
  EXPECT_FALSE(std::signbit(rounded(-1e-17, 6)));
}

TEST(RoundedDifference, HasTheDigitsThatTheNumbersHave) {
  EXPECT_EQ(rounded_difference(1234567.8901, 1234567.89), 0.0001);
  EXPECT_EQ(rounded_difference(3.25, 3), 0.25);
  EXPECT_EQ(rounded_difference(0, 1e-10), -1e-10);
  EXPECT_EQ(rounded_difference(1e15 + 3, 1e15), 3);
  EXPECT_EQ(rounded_difference(0, 0), 0);
  EXPECT_EQ(rounded_difference(infinity, 1), infinity);
}

TEST(SameQuantity, MeansTwelveDigits) {
  EXPECT_TRUE(same_quantity(1234567.89012, 1234567.890120001));
  EXPECT_FALSE(same_quantity(1234567.89012, 1234567.89013));
  EXPECT_FALSE(same_quantity(0.1 + 0.2 - 0.3, 0)) << "nothing says that this is a sum";
  EXPECT_TRUE(same_quantity(0.1 + 0.2 - 0.3, 0, 1e-16));
  EXPECT_FALSE(same_quantity(1, -1));
  EXPECT_FALSE(same_quantity(1e-10, 0)) << "as small as that is not nothing";
}

}  // namespace
}  // namespace tallyra::client
