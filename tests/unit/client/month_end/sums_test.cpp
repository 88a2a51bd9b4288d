#include "client/month_end/sums.h"

#include <gtest/gtest.h>

namespace tallyra::client {
namespace {

PartSum sum(bool goes_out, double out, bool comes_in, double in) {
  PartSum result;
  result.goes_out = goes_out;
  result.out = out;
  result.comes_in = comes_in;
  result.in = in;
  return result;
}

TEST(SumOfAPart, IsWhatTheCloseWrites) {
  EXPECT_EQ(sum(true, 5, false, 0).quantity(), 5);
  EXPECT_EQ(sum(true, 5, true, -7).quantity(), -2);
  EXPECT_EQ(sum(false, 0, true, -7).quantity(), 7) << "what only came in is written as a magnitude";
}

TEST(SumOfAPart, IsUnknownWhereOneOfItsSidesIs) {
  PartSum part = sum(true, 5, true, 0);
  EXPECT_FALSE(part.unknown());
  part.in_unknown = true;
  EXPECT_TRUE(part.unknown());
  part.comes_in = false;
  EXPECT_FALSE(part.unknown());
}

TEST(PlanOfAClose, AddsUpTheLinesOfDepartmentsAndCompany) {
  EXPECT_EQ((ClosePlan{{{{"10", ""}, 3}, {{"20", ""}, 4}}, 5}).lines(), 12U);
  EXPECT_EQ(ClosePlan{}.lines(), 0U);
}

TEST(KeyText, MindsNoBlanksBehindIt) {
  EXPECT_EQ(key_text("10 "), "10");
  EXPECT_EQ(key_text(" 10"), " 10");
  EXPECT_EQ(key_text(automation::Null{}), "");
}

}  // namespace
}  // namespace tallyra::client
