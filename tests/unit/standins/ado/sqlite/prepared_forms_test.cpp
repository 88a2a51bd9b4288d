#include "standins/ado/sqlite/prepared_forms.h"

#include "standins/ado/dialect/sqlite_dialect.h"
#include "standins/ado/sqlite/sqlite_database.h"
#include "standins/ado/sqlite/sqlite_date_columns.h"
#include "tests/support/file_text.h"
#include "tests/support/recorded_statements.h"
#include "tests/unit/standins/ado/scratch_database.h"

// What the component sends is found by the same way whether its values are in the text or apart.
namespace tallyra::standins::ado::test {
namespace {

using Plan = std::vector<std::string>;

class PlansTest : public ScratchDatabase {
 protected:
  PlansTest() {
    EXPECT_EQ(execute_sqlite(database.get(), tests::file_text(TALLYRA_SCHEMA).c_str()), SQLITE_OK);
  }

  // Empty for what does not compile.
  Plan plan(std::string_view sql) const {
    const StatementHandle statement =
        prepare_sqlite(database.get(), "EXPLAIN QUERY PLAN " + std::string(sql), 0);
    Plan result;
    while (statement && sqlite3_step(statement.get()) == SQLITE_ROW)
      result.emplace_back(reinterpret_cast<const char*>(sqlite3_column_text(statement.get(), 3)));
    return result;
  }

  const DatabaseHandle database = open_sqlite({.path = path("test.db")});
  SqliteDateColumns columns{database.get()};
  dialect::SqliteDialect dialect{columns};
};

TEST_F(PlansTest, OfAFormAreThoseOfItsTexts) {
  dialect::StatementForm form;
  std::vector<dialect::LiteralUse> uses;
  int compared = 0;
  int with_values_apart = 0;
  for (const auto& [class_name, kind, sql] : stage::recorded_statements()) {
    if (!scan_literals(sql, form)) continue;
    const std::string apart(dialect.rewrite_form(sql, form.literals, uses));
    const std::string whole(dialect.rewrite(sql));
    const Plan expected = plan(whole);
    EXPECT_EQ(plan(apart), expected) << sql;
    compared += !expected.empty();
    with_values_apart += apart != whole;
  }
  EXPECT_GT(compared, 100);
  EXPECT_GT(with_values_apart, 100);
}

}  // namespace
}  // namespace tallyra::standins::ado::test
