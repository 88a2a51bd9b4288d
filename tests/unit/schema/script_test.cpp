#include "schema/script.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "tests/support/file_text.h"
#include "tests/unit/schema/example_table.h"

namespace {

using namespace tallyra::schema;
using namespace tallyra::tests;

std::string checked_in(const std::string& engine) {
  return file_text(std::string(SCHEMA_FOLDER) + "/" + engine + ".sql");
}

TEST(SchemaScripts, AreThoseThatTheDescriptionMakes) {
  for (const char* engine : {"sqlite", "postgresql", "sqlserver", "access"}) {
    EXPECT_EQ(create_script(engine_named(engine)), checked_in(engine))
        << "schema/" << engine << ".sql is stale: run scripts/generate.sh";
  }
}

TEST(SchemaScripts, AreWrittenForKnownEnginesOnly) {
  EXPECT_THROW(engine_named("SQLite"), std::invalid_argument);
  EXPECT_THROW(engine_named(""), std::invalid_argument);
}

TEST(SchemaScripts, AKeyOfSeveralColumnsStandsBehindThem) {
  const Table lines{
      .name = "LINES", .subject = {}, .note = {}, .columns = {code, place}, .key = {"CODE", "SN"}};
  EXPECT_EQ(create_table(Engine::postgresql, lines),
            "CREATE TABLE LINES(\n"
            "  CODE varchar(5) COLLATE \"C\" NOT NULL,\n"
            "  SN   integer,\n"
            "  PRIMARY KEY(CODE, SN)\n"
            ")");
}

// An index that would refuse the second empty number is none that an engine without partial ones can have.
TEST(SchemaScripts, AnIndexThatLeavesOutEmptyTextsIsAPlainOneWhereThereAreNoPartialOnes) {
  const Index index{"THINGS_KEY", {"CODE", "SN"}, true, "CODE"};
  for (const Engine engine : {Engine::sqlite, Engine::postgresql, Engine::sqlserver}) {
    EXPECT_EQ(create_index(engine, things, index),
              "CREATE UNIQUE INDEX THINGS_KEY ON THINGS(CODE, SN) WHERE CODE<>''");
  }
  EXPECT_EQ(create_index(Engine::access, things, index), "CREATE INDEX THINGS_KEY ON THINGS(CODE, SN)");
}

TEST(SchemaScripts, AColumnIsAddedWithWhatItIsButNotAsAKey) {
  EXPECT_EQ(add_column(Engine::sqlite, things, quantity),
            "ALTER TABLE THINGS ADD COLUMN QTY DOUBLE DEFAULT 0");
  EXPECT_EQ(add_column(Engine::postgresql, things, code),
            "ALTER TABLE THINGS ADD COLUMN CODE varchar(5) COLLATE \"C\" NOT NULL");
}

TEST(SchemaScripts, StatisticsAreGatheredWhereNoneAreShipped) {
  EXPECT_EQ(gather_statistics(Engine::postgresql, things), "ANALYZE THINGS");
  EXPECT_EQ(gather_statistics(Engine::sqlite, things), "");
  EXPECT_TRUE(planner_statements(Engine::postgresql).empty());
  EXPECT_EQ(planner_statements(Engine::sqlite).size(), 3U);
}

TEST(SchemaScripts, CountersOfNumbersStandInTheDatabaseUnlessItIsLockedAsAWhole) {
  for (const Table& table : tables()) {
    EXPECT_EQ(in_database(Engine::sqlite, table), table.name != "TABLEKEYS") << table.name;
    EXPECT_TRUE(in_database(Engine::postgresql, table)) << table.name;
  }
}

}  // namespace
