#include "client/output/table.h"

#include <gtest/gtest.h>

namespace tallyra::client {
namespace {

Table sample() {
  return {"parts",
          "Parts",
          {{"part"}, number_column("qty"), {"name"}},
          {{"P1", 12.5, "bolt, \"long\""}, {"P22", -3, automation::Null{}}}};
}

TEST(PrintedTable, StandsStraightAsText) {
  EXPECT_EQ(printed({sample()}, OutputFormat::text, 0),
            "Parts\n"
            "part   qty  name\n"
            "----  ----  ------------\n"
            "P1    12.5  bolt, \"long\"\n"
            "P22     -3\n");
}

TEST(PrintedTable, IsFittedToTheTerminalByShorteningTexts) {
  EXPECT_EQ(printed({sample()}, OutputFormat::text, 22),
            "Parts\n"
            "part   qty  name\n"
            "----  ----  ----------\n"
            "P1    12.5  bolt, \"lo…\n"
            "P22     -3\n");
}

TEST(PrintedTable, IsFittedByWrappingWhatHasToBeRead) {
  Table table = sample();
  table.wraps = true;
  EXPECT_EQ(printed({table}, OutputFormat::text, 22),
            "Parts\n"
            "part   qty  name\n"
            "----  ----  ----------\n"
            "P1    12.5  bolt,\n"
            "            \"long\"\n"
            "P22     -3\n");
  EXPECT_EQ(printed({table}, OutputFormat::text, 16),
            "Parts\n"
            "part  P1\n"
            "qty   12.5\n"
            "name  bolt,\n"
            "      \"long\"\n"
            "\n"
            "part  P22\n"
            "qty   -3\n");
}

TEST(PrintedTable, HasItsColumnsBelowEachOtherWhereTheyDoNotFitBeside) {
  EXPECT_EQ(printed({sample()}, OutputFormat::text, 16),
            "Parts\n"
            "part  P1\n"
            "qty   12.5\n"
            "name  bolt, \"lon\n"
            "      g\"\n"
            "\n"
            "part  P22\n"
            "qty   -3\n");
  EXPECT_EQ(printed({{"none", "None", {{"a column"}, {"another"}}, {}}}, OutputFormat::text, 16),
            "None\n(none)\n");
}

TEST(PrintedTable, IsNoWiderThanTheTerminalWhateverIsInIt) {
  const Table table{"t", "", {{"部门"}, {"x"}}, {{"螺丝螺丝螺丝螺丝螺丝螺丝", "a\nb\x1B"}}};
  EXPECT_EQ(printed({table}, OutputFormat::text, 16),
            "部门  螺丝螺丝螺\n"
            "      丝螺丝螺丝\n"
            "      螺丝\n"
            "x     a\n"
            "      b\\x1B\n");
}

TEST(PrintedTable, QuotesInCommaSeparatedValuesWhatNeedsIt) {
  EXPECT_EQ(printed({sample(), {"none", "", {{"x"}}, {}}}, OutputFormat::csv, 20),
            "part,qty,name\n"
            "P1,12.5,\"bolt, \"\"long\"\"\"\n"
            "P22,-3,\n"
            "\n"
            "x\n");
}

TEST(PrintedTable, IsOneObjectInJson) {
  EXPECT_EQ(printed({{"a", "A", {{"x"}}, {{1}}}, {"b", "", {{"x"}}, {}}}, OutputFormat::json, 0),
            "{\n  \"a\": [\n    {\n      \"x\": 1\n    }\n  ],\n  \"b\": []\n}\n");
}

}  // namespace
}  // namespace tallyra::client
