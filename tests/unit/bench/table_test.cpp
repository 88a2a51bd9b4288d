#include "bench/table.h"

#include <gtest/gtest.h>

namespace tallyra::bench {
namespace {

const std::vector<Column> columns{{"work", 6, false}, {"time", 5, true}};

TEST(Table, StandsInColumnsOnTheConsole) {
  EXPECT_EQ(console_head(columns), "work     time");
  EXPECT_EQ(console_row(columns, {"a", "1.5"}), "a         1.5");
  EXPECT_EQ(console_row(columns, {"a long one", "1.5"}), "a long one    1.5");
}

TEST(Table, IsATableOfADocument) {
  EXPECT_EQ(markdown_table(columns, {{"a", "1.5"}, {"b", ""}}),
            "| work | time |\n"
            "|---|---:|\n"
            "| a | 1.5 |\n"
            "| b | |\n");
}

}  // namespace
}  // namespace tallyra::bench
