#include "company/table_comparison.h"

#include <gtest/gtest.h>

namespace {

using tallyra::company::difference_of;
using Rows = std::vector<std::string>;

TEST(TableComparison, TheOrderOfRowsDoesNotMatterAndTheirNumberDoes) {
  struct Case {
    Rows source, copy;
    const char* difference;
  };
  const Case cases[] = {
      {{}, {}, ""},
      {{"1,'a'", "2,'b'"}, {"2,'b'", "1,'a'"}, ""},
      {{"1", "1"}, {"1"}, "the source alone has (1)"},
      {{"1"}, {"1", "1"}, "the copy alone has (1)"},
      {{"1", "2", "3"}, {"3", "1"}, "the source alone has (2)"},
      {{"1", "3"}, {"1", "2", "3"}, "the copy alone has (2)"},
      {{"'A'"}, {"'A '"}, "the copy alone has ('A ')"},
      {{"5"}, {}, "the source alone has (5)"},
      {{}, {"5"}, "the copy alone has (5)"},
  };
  for (const Case& it : cases) EXPECT_EQ(difference_of(it.source, it.copy), it.difference);
}

}  // namespace
