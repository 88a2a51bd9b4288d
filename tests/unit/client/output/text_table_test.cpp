#include "client/output/text_table.h"

#include <gtest/gtest.h>

namespace tallyra::client {
namespace {

std::string text_of(const TextTable& table) {
  std::string text;
  table.append_to(text);
  return text;
}

TEST(TextTable, ColumnsStandStraightWithoutBlanksAtTheEnd) {
  TextTable table;
  table.add_row({"a", "long", ""});
  table.add_row({"第二", "b", "c"});
  EXPECT_EQ(text_of(table),
            "a     long\n"
            "第二  b     c\n");
}

TEST(TextTable, NumbersStandRightAndTheHeadingHasALine) {
  TextTable table({Align::left, Align::right});
  table.add_row({"Part", "Quantity"});
  table.add_row({"A", "5"});
  std::string text;
  table.append_with_heading(text);
  EXPECT_EQ(text,
            "Part  Quantity\n"
            "----  --------\n"
            "A            5\n");
}

TEST(TextTable, ATextOfSeveralLinesStaysInItsColumn) {
  TextTable table;
  table.add_row({"first\nsecond", "x"});
  EXPECT_EQ(text_of(table),
            "first   x\n"
            "second\n");
}

TEST(TextTable, TheWidestLeftColumnsAreShortenedToFit) {
  TextTable table({Align::left, Align::left, Align::right});
  table.add_row({"a rather long description", "0123456789", "1234567890123"});
  EXPECT_TRUE(table.fit(40));
  EXPECT_EQ(text_of(table), "a rather lon…  0123456789  1234567890123\n");
  TextTable narrow;
  narrow.add_row({"0123456789abc", "2024/01/31"});
  EXPECT_FALSE(narrow.fit(21)) << "no further than it can be read";
  EXPECT_EQ(text_of(narrow), "0123456789abc  2024/01/31\n");
  EXPECT_TRUE(narrow.fit(22));
  EXPECT_EQ(text_of(narrow), "012345678…  2024/01/31\n");
}

TEST(TextTable, TheWidestLeftColumnsAreWrappedToFit) {
  TextTable table;
  table.add_row({"BAD", "what is told of it", "and what is to do about it"});
  EXPECT_TRUE(table.fit(30, Fit::wrapping));
  EXPECT_EQ(text_of(table),
            "BAD  what is      and what is\n"
            "     told of it   to do about\n"
            "                  it\n");
}

}  // namespace
}  // namespace tallyra::client
