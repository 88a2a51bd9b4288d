#include <gtest/gtest.h>

#include <string>

#include "standins/ado/dialect/sqlite_dialect.h"
#include "tests/unit/standins/ado/dialect/component_statements.h"
#include "tests/unit/standins/ado/dialect/stock_columns.h"

namespace tallyra::tests::dialect {
namespace {

using standins::ado::dialect::SqliteDialect;

std::string expected(const ComponentStatement& statement) {
  return std::string(statement.sqlite.empty() ? statement.text : statement.sqlite);
}

TEST(ComponentStatements, BecomeTheSameTextInBothForms) {
  for (const ComponentStatement& statement : component_statements()) {
    for (const char delimiter : {'#', '\''}) {
      const std::string sql = in_form(statement.text, delimiter);
      StockColumns columns;
      SqliteDialect fresh(columns);
      EXPECT_EQ(fresh.rewrite(sql), expected(statement)) << sql;
    }
  }
}

TEST(ComponentStatements, DoNotDependOnWhatWasRewrittenBefore) {
  StockColumns columns;
  SqliteDialect dialect(columns);
  for (int round = 0; round < 3; ++round)
    for (const ComponentStatement& statement : component_statements())
      for (const char delimiter : {'#', '\''}) {
        const std::string sql = in_form(statement.text, delimiter);
        EXPECT_EQ(dialect.rewrite(sql), expected(statement)) << sql;
      }
}

TEST(ComponentStatements, AreLeftAloneOnceTheyAreRewritten) {
  StockColumns columns;
  SqliteDialect dialect(columns);
  for (const ComponentStatement& statement : component_statements()) {
    const std::string sql = expected(statement);
    const std::string_view again = dialect.rewrite(sql);
    EXPECT_EQ(again.data(), sql.data()) << sql;
    EXPECT_EQ(again.size(), sql.size());
  }
}

}  // namespace
}  // namespace tallyra::tests::dialect
