#include "client/suggestion.h"

#include <gtest/gtest.h>

#include <vector>

namespace tallyra::client {
namespace {

TEST(Suggestion, NamesTheWordThatIsNear) {
  const std::vector<std::string_view> known{"check", "close", "CStockClose"};
  EXPECT_EQ(did_you_mean("chekc", known), "; did you mean 'check'?");
  EXPECT_EQ(did_you_mean("clsoe", known), "; did you mean 'close'?");
  EXPECT_EQ(did_you_mean("cstockclos", known), "; did you mean 'CStockClose'?");
}

TEST(Suggestion, NamesNoneThatIsFar) {
  const std::vector<std::string_view> known{"check", "close"};
  EXPECT_EQ(did_you_mean("report", known), "");
  EXPECT_EQ(did_you_mean("", known), "");
}

TEST(Suggestion, KnowsVerbsAndClasses) {
  EXPECT_EQ(resembling_word("lgo"), "; did you mean 'log'?");
  EXPECT_EQ(resembling_word("CRevAdr"), "; did you mean 'CRevAddr'?");
}

}  // namespace
}  // namespace tallyra::client
