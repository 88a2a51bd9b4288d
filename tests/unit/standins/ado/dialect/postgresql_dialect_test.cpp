#include "standins/ado/dialect/postgresql_dialect.h"

#include <gtest/gtest.h>

#include <string>

#include "standins/ado/dialect/sqlite_dialect.h"
#include "tests/unit/standins/ado/dialect/component_statements.h"
#include "tests/unit/standins/ado/dialect/stock_columns.h"

namespace tallyra::tests::dialect {
namespace {

using standins::ado::dialect::PostgresqlDialect;
using standins::ado::dialect::SqliteDialect;

std::string rewritten(std::string_view sql) {
  StockColumns columns;
  PostgresqlDialect dialect(columns);
  return std::string(dialect.rewrite(sql));
}

TEST(PostgresqlDialect, SaysOfTheComponentsStatementsWhatItSaysForSqlite) {
  StockColumns columns;
  SqliteDialect sqlite(columns);
  for (const std::string& statement : component_statements()) {
    std::string expected(sqlite.rewrite(statement));
    if (const auto rows = expected.find(".rowid IN (SELECT "); rows != std::string::npos) {
      expected.replace(rows, 18, ".ctid=ANY(ARRAY(SELECT ");
      expected.replace(expected.find(".rowid"), 6, ".ctid");
      expected.insert(expected.rfind(')'), 1, ')');
    }
    EXPECT_EQ(rewritten(statement), expected);
  }
}

TEST(PostgresqlDialect, AHeadWithBracketsIsRewrittenEachTime) {
  StockColumns columns;
  PostgresqlDialect dialect(columns);
  for (int i = 0; i < 3; ++i)
    EXPECT_EQ(dialect.rewrite("Insert Into [T]([A]) Values(1)"), "Insert Into \"t\"(\"a\") Values(1)");
}

}  // namespace
}  // namespace tallyra::tests::dialect
