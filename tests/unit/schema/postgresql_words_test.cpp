#include <gtest/gtest.h>

#include "schema/engine_words.h"
#include "tests/unit/schema/example_table.h"

namespace {

using namespace tallyra::schema;
using namespace tallyra::tests;

TEST(PostgresqlWords, SayATable) {
  EXPECT_EQ(create_table(Engine::postgresql, things),
            "CREATE TABLE THINGS(\n"
            "  CODE  varchar(5) COLLATE \"C\" NOT NULL PRIMARY KEY,\n"
            "  STORE bpchar COLLATE \"C\" CHECK(length(STORE)<=7),\n"
            "  DAY   timestamp(0) CONSTRAINT DAY_IS_A_DATE CHECK(DAY BETWEEN '0100-01-01' AND '9999-12-31 "
            "23:59:59'),\n"
            "  QTY   double precision DEFAULT 0,\n"
            "  SN    integer\n"
            ")");
}

TEST(PostgresqlWords, DatesThatAreNotComparedNeedNoCheck) {
  EXPECT_EQ(postgresql_words.check(Column{.name = "DAY", .kind = Kind::date}), "");
}

}  // namespace
