#include <gtest/gtest.h>

#include <set>
#include <string>
#include <utility>

#include "standins/ado/dialect/sqlite_dialect.h"
#include "tests/support/baseline.h"
#include "tests/support/recorded_statements.h"
#include "tests/unit/standins/ado/dialect/component_statements.h"
#include "tests/unit/standins/ado/dialect/engine.h"
#include "tests/unit/standins/ado/dialect/rewriting.h"
#include "tests/unit/standins/ado/dialect/stock_columns.h"

// What becomes of everything that the component sends. The texts for SQLite stand in files, a line for each
// line of the recorded statements; "! " before a text says that the engine refuses it.
namespace tallyra::tests::dialect {
namespace {

using standins::ado::dialect::SqliteDialect;

class ComponentStatements : public testing::Test {
 protected:
  bool refuses(std::string_view sql) {
    const bool refused = engine_.run(sql).starts_with('!');
    engine_.roll_back();
    return refused;
  }

 private:
  Engine engine_;
};

TEST_F(ComponentStatements, BecomeTheTextsThatAreKept) {
  std::set<std::pair<std::string, std::string>> files;
  for (const auto& statement : stage::recorded_statements())
    files.emplace(statement.class_name, statement.kind);
  for (const auto& [class_name, kind] : files) {
    std::string actual;
    for (const std::string& statement : component_statements(class_name, kind)) {
      const std::string sql = rewritten(statement);
      actual += (refuses(sql) ? "! " : "") + sql + '\n';
    }
    EXPECT_EQ(actual,
              stage::approved(
                  "unit/standins/ado/dialect/statements/" + class_name + "." + kind + ".sqlite.sql", actual));
  }
}

TEST_F(ComponentStatements, BecomeTheSameTextInBothForms) {
  int with_dates = 0;
  for (const std::string& statement : component_statements()) {
    if (statement.find('#') == std::string::npos || refuses(rewritten(statement))) continue;
    std::string quoted = statement;
    for (char& sign : quoted)
      if (sign == '#') sign = '\'';
    EXPECT_EQ(rewritten(quoted), rewritten(statement)) << statement;
    ++with_dates;
  }
  EXPECT_GT(with_dates, 50);
}

TEST_F(ComponentStatements, DoNotDependOnWhatWasRewrittenBefore) {
  StockColumns columns;
  SqliteDialect dialect(columns);
  for (int round = 0; round < 3; ++round)
    for (const std::string& statement : component_statements())
      EXPECT_EQ(dialect.rewrite(statement), rewritten(statement)) << statement;
}

TEST_F(ComponentStatements, AreLeftAloneOnceTheyAreRewritten) {
  StockColumns columns;
  SqliteDialect dialect(columns);
  for (const std::string& statement : component_statements()) {
    const std::string sql = rewritten(statement);
    if (refuses(sql)) continue;
    const std::string_view again = dialect.rewrite(sql);
    EXPECT_EQ(again.data(), sql.data()) << sql;
    EXPECT_EQ(again.size(), sql.size());
  }
}

}  // namespace
}  // namespace tallyra::tests::dialect
