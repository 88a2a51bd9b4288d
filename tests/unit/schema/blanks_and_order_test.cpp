#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "automation/convert.h"
#include "automation/error.h"
#include "company/ado_connection.h"
#include "company/schema_upgrade.h"
#include "schema/description.h"
#include "tests/support/empty_database.h"

// What the description says of texts, held on every engine.
namespace {

using namespace tallyra::schema;
using tallyra::company::AdoConnection;
using tallyra::tests::EmptyDatabase;
using tallyra::tests::TestedEngine;
namespace automation = tallyra::automation;

class SchemaTexts : public testing::TestWithParam<TestedEngine> {
 protected:
  void SetUp() override {
    database_ = GetParam().empty_database();
    if (!database_) GTEST_SKIP() << "there is no " << GetParam().name << " server here";
    tallyra::company::upgrade_schema(database_->connection_string());
    connection_ = std::make_unique<AdoConnection>(database_->connection_string());
  }

  const AdoConnection& connection() const { return *connection_; }
  int count(const std::string& from) const {
    return static_cast<int>(connection().number("SELECT COUNT(*) AS N FROM " + from));
  }
  std::vector<std::string> texts(const std::string& query) const {
    std::vector<std::string> found;
    for (const auto& row : connection().rows(query)) found.push_back(automation::to_text(row.at(0)));
    return found;
  }

 private:
  std::unique_ptr<EmptyDatabase> database_;
  std::unique_ptr<AdoConnection> connection_;
};

// A row with the value in one column and something in every other that needs it.
std::string insert(const Table& table, const Column& with, const std::string& value) {
  std::string columns;
  std::string values;
  for (const Column& column : table.columns) {
    const bool is_it = column.name == with.name;
    if (column.nullable && !is_it) continue;
    columns.append(columns.empty() ? "" : ",").append(column.name);
    values.append(values.empty() ? "" : ",");
    values += is_it                          ? "'" + value + "'"
              : column.kind == Kind::text    ? "'" + value + "'"
              : column.kind == Kind::integer ? "1"
                                             : "'2024-01-31 00:00:00'";
  }
  return "INSERT INTO " + std::string(table.name) + "(" + columns + ") VALUES(" + values + ")";
}

TEST_P(SchemaTexts, TrailingBlanksCountOrNotAsTheDescriptionSays) {
  for (const Table& table : tables()) {
    if (!in_database(connection().engine(), table)) continue;
    for (const Column& column : table.columns) {
      if (column.kind != Kind::text) continue;
      const std::string name = std::string(table.name) + "." + std::string(column.name);
      connection().execute(insert(table, column, "x "));
      const std::string where = std::string(table.name) + " WHERE " + std::string(column.name);
      const int found = column.trailing_blanks_count ? 0 : 1;
      EXPECT_EQ(count(where + "='x'"), found) << name;
      EXPECT_EQ(count(where + "='x   '"), found) << name;
      EXPECT_EQ(count(where + " IN ('y','x')"), found) << name;
      EXPECT_EQ(count(where + "='x '"), 1) << name;
      EXPECT_EQ(count(where + "=' x'"), 0) << name;
      EXPECT_EQ(texts("SELECT " + std::string(column.name) + " FROM " + std::string(table.name)),
                std::vector<std::string>{"x "})
          << name;
      connection().execute("DELETE FROM " + std::string(table.name));
    }
  }
}

TEST_P(SchemaTexts, KeysFollowTheSameRule) {
  for (const Table& table : tables()) {
    if (!in_database(connection().engine(), table) || table.key.size() != 1) continue;
    const auto key = std::ranges::find(table.columns, table.key.front(), &Column::name);
    if (key->kind != Kind::text) continue;
    connection().execute(insert(table, *key, "x"));
    if (key->trailing_blanks_count)
      EXPECT_NO_THROW(connection().execute(insert(table, *key, "x "))) << table.name;
    else
      EXPECT_THROW(connection().execute(insert(table, *key, "x ")), automation::Error) << table.name;
  }
}

TEST_P(SchemaTexts, JoinsAndGroupsOfDepartmentsAndSuppliersIgnoreTrailingBlanks) {
  connection().execute("INSERT INTO DEPARTS(DEPTNO,DEPTNM) VALUES('10','Store')");
  connection().execute("INSERT INTO SUPPLIERS(SUPPLIERS,SUPPLIERNM) VALUES('S1 ','Riverside')");
  for (const char* number : {"'A','10 ','S1'", "'B','10','S1  '"}) {
    connection().execute(std::string("INSERT INTO STKTRANHD(TRANNO,DEPTNOFR,DEPTNOTO,TRANTYPE) VALUES(") +
                         number + ",'T')");
  }
  EXPECT_EQ(count("STKTRANHD INNER JOIN DEPARTS ON STKTRANHD.DEPTNOFR=DEPARTS.DEPTNO"), 2);
  EXPECT_EQ(
      count("STKTRANHD INNER JOIN SUPPLIERS ON STKTRANHD.DEPTNOTO =SUPPLIERS  WHERE STKTRANHD.TRANNO='A'"),
      1);
  EXPECT_EQ(connection().rows("SELECT DEPTNOFR FROM STKTRANHD GROUP BY DEPTNOFR").size(), 1U);
  EXPECT_EQ(connection().rows("SELECT DISTINCT DEPTNOTO FROM STKTRANHD").size(), 1U);
}

TEST_P(SchemaTexts, PartNumbersComeInTheOrderOfTheirBytes) {
  std::vector<std::string> parts = {"a-1",  "A-1", "A1",  "a1", "A_1",  "ab",    "AB", "aB", "A-10", "A-2",
                                    "ä-1",  "Ä-1", "z",   "Z",  "中-1", "中-01", "é",  "e",  "E",    "-1",
                                    "0001", "1",   "A 1", "A",  "a",    "😀-1",   "~",  "A ", "ﬁ-1"};
  for (const std::string& part : parts) {
    connection().execute("INSERT INTO PARTS(PARTNO) VALUES('" + part + "')");
    connection().execute("INSERT INTO STKTRANDT(TRANNO,PARTNO,QTY) VALUES('T1','" + part + "',1)");
  }
  std::sort(parts.begin(), parts.end());
  EXPECT_EQ(texts("SELECT PARTNO FROM PARTS ORDER BY PARTNO"), parts);
  EXPECT_EQ(texts("SELECT PARTNO,SUM(QTY) AS QTY FROM STKTRANDT GROUP BY PARTNO ORDER BY PARTNO"), parts);
}

TEST_P(SchemaTexts, ADocumentNumberIsThereOnceUnlessItIsEmpty) {
  const std::string insert_header = "INSERT INTO STKTRANHD(TRANNO,TRANTYPE) VALUES('";
  connection().execute(insert_header + "T1','T')");
  EXPECT_THROW(connection().execute(insert_header + "T1','T')"), automation::Error);
  for (int i = 0; i < 3; ++i) connection().execute(insert_header + "','T')");
  EXPECT_EQ(count("STKTRANHD WHERE TRANNO=''"), 3);
}

INSTANTIATE_TEST_SUITE_P(SQLite, SchemaTexts, testing::Values(tallyra::tests::sqlite_engine));
INSTANTIATE_TEST_SUITE_P(PostgreSQL, SchemaTexts, testing::Values(tallyra::tests::postgresql_engine));

}  // namespace
