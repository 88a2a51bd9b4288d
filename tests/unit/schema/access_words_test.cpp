#include <gtest/gtest.h>

#include "schema/engine_words.h"
#include "tests/unit/schema/example_table.h"

namespace {

using namespace tallyra::schema;
using namespace tallyra::tests;

TEST(AccessWords, SayATable) {
  EXPECT_EQ(create_table(Engine::access, things),
            "CREATE TABLE THINGS(\n"
            "  CODE  TEXT(5) NOT NULL PRIMARY KEY,\n"
            "  STORE TEXT(7),\n"
            "  DAY   DATETIME,\n"
            "  QTY   DOUBLE DEFAULT 0,\n"
            "  SN    LONG\n"
            ")");
}

TEST(AccessWords, HaveNoCheckBesideTheTypeAndNoPartialIndexes) {
  for (const Column& column : things.columns) EXPECT_EQ(access_words.check(column), "") << column.name;
  EXPECT_FALSE(access_words.partial_indexes);
}

}  // namespace
