#include "client/stocktaking/separated_values.h"

#include <gtest/gtest.h>

namespace tallyra::client {
namespace {

std::string shown(std::string_view text) {
  std::string result;
  for (const SeparatedRow& row : separated_rows(text)) {
    result += std::to_string(row.line) + ":";
    for (const std::string& cell : row.cells) result += "<" + cell + ">";
  }
  return result;
}

TEST(SeparatedValues, AreSplitByTheMarkOfTheFirstRow) {
  EXPECT_EQ(shown("a,b\n1,2\n"), "1:<a><b>2:<1><2>");
  EXPECT_EQ(shown("a;b\r\n1,5;2\r\n"), "1:<a><b>2:<1,5><2>");
  EXPECT_EQ(shown("\xEF\xBB\xBF"
                  "a\tb\n1\t\n"),
            "1:<a><b>2:<1><>");
}

TEST(SeparatedValues, KeepWhatIsQuoted) {
  EXPECT_EQ(shown("a,\"b,\"\"c\"\"\nd\"\ne\n"), "1:<a><b,\"c\"\nd>3:<e>");
  EXPECT_EQ(shown("a,\"open\nb"), "1:<a><open\nb>");
  EXPECT_TRUE(separated_rows("a,\"open\nb").back().open_quote);
  EXPECT_FALSE(separated_rows("a,\"shut\"\nb").back().open_quote);
  EXPECT_EQ(shown("5\" pipe,1"), "1:<5\" pipe><1>");
}

TEST(SeparatedValues, CountLinesOverEmptyOnes) {
  EXPECT_EQ(shown("a,b\n\n,,\nc,d"), "1:<a><b>4:<c><d>");
  EXPECT_EQ(shown(""), "");
}

}  // namespace
}  // namespace tallyra::client
