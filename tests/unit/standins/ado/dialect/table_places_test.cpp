#include "standins/ado/dialect/table_places.h"

#include <gtest/gtest.h>

#include "tests/unit/standins/ado/dialect/cut_text.h"

namespace tallyra::tests::dialect {
namespace {

using standins::ado::dialect::TablePlaces;
using standins::ado::dialect::TokenKind;

// The texts of a statement that stand where a table may, with a blank between.
std::string tables(std::string_view sql) {
  const auto tokens = cut(sql);
  TablePlaces places(tokens);
  std::string found;
  for (std::size_t i = 1; i + 1 < tokens.list.size(); ++i) {
    if (!places.names_table(i) || tokens[i].kind != TokenKind::text) continue;
    if (!found.empty()) found += ' ';
    found += tokens.name(i);
  }
  return found;
}

TEST(TablePlaces, AreBehindTheWordsThatATableFollows) {
  EXPECT_EQ(tables("Select 'x' From 'a' Where A='x'"), "a");
  EXPECT_EQ(tables("Insert Into 'a' Values('x','x')"), "a");
  EXPECT_EQ(tables("Update 'a' Set A='x' Where B='x'"), "a");
  EXPECT_EQ(tables("Select * From T Left Join 'a' On T.A='x'"), "a");
  EXPECT_EQ(tables("Select * From T Where A In 'a' And B='x'"), "a");
  EXPECT_EQ(tables("Select * From main.'a'"), "a");
  EXPECT_EQ(tables("Select 'a'('x')"), "a") << "with arguments";
}

TEST(TablePlaces, AreBetweenTheCommasOfAFromClauseAtAnyDepth) {
  EXPECT_EQ(tables("Select 'x','x' From 'a','b',('c','d') Where A In ('x','x') Order By 'x','x'"), "a b c d");
  EXPECT_EQ(tables("Select * From (Select 'x' From 'a' Where A='x'),'b'"), "a b");
  EXPECT_EQ(tables("Select (Select 'x','x' From 'a'),'x' From 'b'"), "a b");
  EXPECT_EQ(tables("Select * From T As window,'a'"), "a");
}

TEST(TablePlaces, EndWithTheClauseAndTheStatement) {
  for (const char* word : {"Group By", "Having", "Limit", "Order By", "Where"})
    EXPECT_EQ(tables(std::string("Select * From 'a' ") + word + " A,'x'"), "a") << word;
  EXPECT_EQ(tables("Select * From 'a';'x','x'"), "a");
  EXPECT_EQ(tables("Select * From T Where A Is Not Distinct From 'x'"), "");
}

}  // namespace
}  // namespace tallyra::tests::dialect
