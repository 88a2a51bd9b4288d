#include "standins/ado/dialect/scopes.h"

#include <gtest/gtest.h>

#include "tests/unit/standins/ado/dialect/stock_columns.h"

namespace tallyra::tests::dialect {
namespace {

using standins::ado::dialect::DateColumnCache;
using standins::ado::dialect::Scopes;

class ScopesOfAStatement : public testing::Test {
 protected:
  // A table under an alias, or under its name.
  void add(Scopes::Id scope, std::string_view name, std::string_view alias = {}) {
    scopes_.add(scope, {.name = name, .exposed = alias.empty() ? name : alias, .written = name});
  }
  bool is_date(Scopes::Id scope, std::string_view qualifier, std::string_view column) {
    return scopes_.is_date(scope, qualifier, column, cache_);
  }

  StockColumns columns_;
  DateColumnCache cache_{columns_};
  Scopes scopes_;
};

TEST_F(ScopesOfAStatement, AnUnqualifiedColumnIsADateWhereAnyTableSaysSo) {
  const auto query = scopes_.open(Scopes::none);
  add(query, "STKTRANDT", "D");
  add(query, "STKTRANHD", "H");
  EXPECT_TRUE(is_date(query, "", "TRANDT"));
  EXPECT_TRUE(is_date(query, "h", "trandt"));
  EXPECT_FALSE(is_date(query, "D", "TRANDT"));
  EXPECT_FALSE(is_date(query, "STKTRANHD", "TRANDT")) << "hidden by its alias";
  EXPECT_FALSE(is_date(query, "", "TRANNO"));
}

TEST_F(ScopesOfAStatement, WhatIsNotFoundIsLookedForOutside) {
  const auto outer = scopes_.open(Scopes::none);
  add(outer, "STKTRANHD", "H");
  const auto inner = scopes_.open(outer);
  add(inner, "PARTS", "P");
  EXPECT_TRUE(is_date(inner, "H", "TRANDT"));
  EXPECT_TRUE(is_date(inner, "", "TRANDT"));
  EXPECT_FALSE(is_date(outer, "P", "EDITDT"));
}

TEST_F(ScopesOfAStatement, TheNearestTableOfANameHidesTheOthers) {
  const auto outer = scopes_.open(Scopes::none);
  add(outer, "STKTRANHD", "T");
  const auto inner = scopes_.open(outer);
  add(inner, "STKTRANDT", "T");
  EXPECT_FALSE(is_date(inner, "T", "TRANDT"));
  EXPECT_TRUE(is_date(outer, "T", "TRANDT"));
}

TEST_F(ScopesOfAStatement, TheTablesOfASubqueryStandUnderItsAlias) {
  const auto subquery = scopes_.open(Scopes::none);
  add(subquery, "STKTRANHD");
  const auto query = scopes_.open(Scopes::none);
  scopes_.adopt(query, subquery, "Q");
  EXPECT_TRUE(is_date(query, "Q", "TRANDT"));
  EXPECT_FALSE(is_date(query, "STKTRANHD", "TRANDT"));
  EXPECT_EQ(scopes_.target(query, "Q"), nullptr) << "no table to delete from";
}

TEST_F(ScopesOfAStatement, ATargetIsTheOneTableOfItsName) {
  const auto query = scopes_.open(Scopes::none);
  add(query, "STKTRANDT", "D");
  EXPECT_TRUE(scopes_.single(query));
  add(query, "PARTS");
  EXPECT_FALSE(scopes_.single(query));
  ASSERT_NE(scopes_.target(query, "d"), nullptr);
  EXPECT_EQ(scopes_.target(query, "d")->written, "STKTRANDT");
  EXPECT_EQ(scopes_.target(query, "STKTRANDT"), nullptr);
  add(query, "STKTRANHD", "D");
  EXPECT_EQ(scopes_.target(query, "D"), nullptr) << "there are two";
}

TEST_F(ScopesOfAStatement, NoMoreTablesThanCanBeJoinedAreKept) {
  const auto query = scopes_.open(Scopes::none);
  for (int i = 0; i < 64; ++i) add(query, "PARTS");
  add(query, "STKTRANHD");
  EXPECT_FALSE(is_date(query, "", "TRANDT"));
  scopes_.clear();
  const auto next = scopes_.open(Scopes::none);
  add(next, "STKTRANHD");
  EXPECT_TRUE(is_date(next, "", "TRANDT"));
}

}  // namespace
}  // namespace tallyra::tests::dialect
