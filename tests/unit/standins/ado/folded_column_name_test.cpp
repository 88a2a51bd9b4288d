#include "standins/ado/folded_column_name.h"

#include <gtest/gtest.h>

namespace tallyra::standins::ado {
namespace {

TEST(FoldedColumnName, WithoutACapitalLetterBecomesOneOfCapitals) {
  EXPECT_EQ(folded_column_name("partno"), "PARTNO");
  EXPECT_EQ(folded_column_name("part_no 2"), "PART_NO 2");
  EXPECT_EQ(folded_column_name("größe"), "GRößE") << "capitals of ASCII, as names are declared";
  EXPECT_EQ(folded_column_name(""), "");
}

TEST(FoldedColumnName, WithOneStaysAsSomebodyQuotedIt) {
  EXPECT_EQ(folded_column_name("Twice"), "Twice");
  EXPECT_EQ(folded_column_name("partNo"), "partNo");
  EXPECT_EQ(folded_column_name("PARTNO"), "PARTNO");
}

}  // namespace
}  // namespace tallyra::standins::ado
