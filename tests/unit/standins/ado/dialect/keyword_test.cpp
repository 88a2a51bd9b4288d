#include "standins/ado/dialect/keyword.h"

#include <gtest/gtest.h>

namespace tallyra::tests::dialect {
namespace {

using standins::ado::dialect::Keyword;
using standins::ado::dialect::keyword_of;
using standins::ado::dialect::same_name;

TEST(Keyword, IsFoundInAnyCase) {
  EXPECT_EQ(keyword_of("SELECT"), Keyword::select);
  EXPECT_EQ(keyword_of("sElEcT"), Keyword::select);
  EXPECT_EQ(keyword_of("all"), Keyword::all) << "the first of the list";
  EXPECT_EQ(keyword_of("With"), Keyword::with) << "the last of the list";
  EXPECT_EQ(keyword_of("distinct"), Keyword::distinct);
  EXPECT_EQ(keyword_of("distinctrow"), Keyword::distinctrow);
}

TEST(Keyword, IsAWholeWordOnly) {
  for (const std::string_view word :
       {"", "SELEC", "SELECTS", "SELECT ", "[SELECT]", "1", "_", "Ä", "zip", "PARTNO"})
    EXPECT_EQ(keyword_of(word), Keyword::none) << word;
}

TEST(Keyword, NamesAreTheSameButForTheCaseOfPlainLetters) {
  EXPECT_TRUE(same_name("PartNo", "PARTNO"));
  EXPECT_TRUE(same_name("", ""));
  EXPECT_FALSE(same_name("PartNo", "PartNo "));
  EXPECT_FALSE(same_name("ä", "Ä"));
  EXPECT_FALSE(same_name("@", "`")) << "32 apart, but no letters";
}

}  // namespace
}  // namespace tallyra::tests::dialect
