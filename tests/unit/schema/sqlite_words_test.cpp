#include <gtest/gtest.h>

#include "schema/engine_words.h"
#include "tests/unit/schema/example_table.h"

namespace {

using namespace tallyra::schema;
using namespace tallyra::tests;

TEST(SqliteWords, SayATable) {
  EXPECT_EQ(create_table(Engine::sqlite, things),
            "CREATE TABLE THINGS(\n"
            "  CODE  VARCHAR(5) NOT NULL PRIMARY KEY,\n"
            "  STORE VARCHAR(7) COLLATE RTRIM,\n"
            "  DAY   TIMESTAMP CONSTRAINT DAY_IS_A_DATE CHECK(DAY IS strftime('%Y-%m-%d %H:%M:%S', DAY, '+0 "
            "days')),\n"
            "  QTY   DOUBLE DEFAULT 0,\n"
            "  SN    INTEGER\n"
            ") WITHOUT ROWID");
}

TEST(SqliteWords, DatesThatAreNotComparedNeedNoCheck) {
  EXPECT_EQ(sqlite_words.check(Column{.name = "DAY", .kind = Kind::date}), "");
}

}  // namespace
