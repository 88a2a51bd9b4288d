#include <gtest/gtest.h>

#include "schema/engine_words.h"
#include "tests/unit/schema/example_table.h"

namespace {

using namespace tallyra::schema;
using namespace tallyra::tests;

TEST(SqlserverWords, SayATable) {
  EXPECT_EQ(create_table(Engine::sqlserver, things),
            "CREATE TABLE THINGS(\n"
            "  CODE  NVARCHAR(5) COLLATE Latin1_General_BIN2 NOT NULL PRIMARY KEY,\n"
            "  STORE NVARCHAR(7) COLLATE Latin1_General_BIN2,\n"
            "  DAY   DATETIME,\n"
            "  QTY   FLOAT DEFAULT 0,\n"
            "  SN    INT\n"
            ")");
}

TEST(SqlserverWords, HaveNoCheckBesideTheType) {
  for (const Column& column : things.columns) EXPECT_EQ(sqlserver_words.check(column), "") << column.name;
  EXPECT_TRUE(sqlserver_words.partial_indexes);
}

}  // namespace
