#include "schema/script.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <stdexcept>

namespace {

using namespace tallyra::schema;

std::string checked_in(const std::string& engine) {
  std::ifstream file(std::string(SCHEMA_FOLDER) + "/" + engine + ".sql", std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
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

constexpr Column code{.name = "CODE", .kind = Kind::text, .length = 5, .nullable = false};
constexpr Column store{.name = "STORE", .kind = Kind::text, .length = 7, .trailing_blanks_count = false};
constexpr Column day{.name = "DAY", .kind = Kind::date, .compared = true};
constexpr Column quantity{.name = "QTY", .kind = Kind::number, .initial = "0"};
constexpr Column place{.name = "SN", .kind = Kind::integer};

const Table things{.name = "THINGS",
                   .subject = {},
                   .note = {},
                   .columns = {code, store, day, quantity, place},
                   .key = {"CODE"},
                   .stored_by_key = true};

struct Words {
  Engine engine;
  const char* table;
};

TEST(SchemaScripts, SayATableInTheWordsOfEachEngine) {
  const Words all[] = {
      {Engine::sqlite,
       "CREATE TABLE THINGS(\n"
       "  CODE  VARCHAR(5) NOT NULL PRIMARY KEY,\n"
       "  STORE VARCHAR(7) COLLATE RTRIM,\n"
       "  DAY   TIMESTAMP CONSTRAINT DAY_IS_A_DATE CHECK(DAY IS strftime('%Y-%m-%d %H:%M:%S', DAY, '+0 "
       "days')),\n"
       "  QTY   DOUBLE DEFAULT 0,\n"
       "  SN    INTEGER\n"
       ") WITHOUT ROWID"},
      {Engine::postgresql,
       "CREATE TABLE THINGS(\n"
       "  CODE  varchar(5) COLLATE \"C\" NOT NULL PRIMARY KEY,\n"
       "  STORE bpchar COLLATE \"C\" CHECK(length(STORE)<=7),\n"
       "  DAY   timestamp(0) CONSTRAINT DAY_IS_A_DATE CHECK(DAY BETWEEN '0100-01-01' AND '9999-12-31 "
       "23:59:59'),\n"
       "  QTY   double precision DEFAULT 0,\n"
       "  SN    integer\n"
       ")"},
      {Engine::sqlserver,
       "CREATE TABLE THINGS(\n"
       "  CODE  NVARCHAR(5) COLLATE Latin1_General_BIN2 NOT NULL PRIMARY KEY,\n"
       "  STORE NVARCHAR(7) COLLATE Latin1_General_BIN2,\n"
       "  DAY   DATETIME,\n"
       "  QTY   FLOAT DEFAULT 0,\n"
       "  SN    INT\n"
       ")"},
      {Engine::access,
       "CREATE TABLE THINGS(\n"
       "  CODE  TEXT(5) NOT NULL PRIMARY KEY,\n"
       "  STORE TEXT(7),\n"
       "  DAY   DATETIME,\n"
       "  QTY   DOUBLE DEFAULT 0,\n"
       "  SN    LONG\n"
       ")"},
  };
  for (const auto& [engine, table] : all) EXPECT_EQ(create_table(engine, things), table);
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
