#include "standins/corvane/column_name.h"

#include <gtest/gtest.h>

namespace tallyra::standins::corvane {
namespace {

std::string written(std::string_view name) {
  std::string out = "Set ";
  append_column_name(out, name);
  return out.substr(4);
}

TEST(ColumnName, IsPlainWhenItIsAWordOfLettersAndDigits) {
  for (const char* name : {"A", "_", "PARTNO", "Part_No2"}) EXPECT_TRUE(is_plain_name(name)) << name;
  for (const char* name : {"", "2A", "A B", "A-B", "A'", "größe", "A."})
    EXPECT_FALSE(is_plain_name(name)) << name;
}

TEST(ColumnName, IsWrittenInBracketsUnlessEveryoneReadsItWithout) {
  EXPECT_EQ(written("PARTNO"), "PARTNO");
  EXPECT_EQ(written("Part No"), "[Part No]");
  EXPECT_EQ(written("2A"), "[2A]");
  EXPECT_EQ(written("Date"), "[Date]");
  EXPECT_EQ(written("ORDER"), "[ORDER]");
  EXPECT_EQ(written("Orders"), "Orders");
}

}  // namespace
}  // namespace tallyra::standins::corvane
