#include "standins/corvane/database.h"

#include <gtest/gtest.h>

#include "automation/error.h"
#include "tests/unit/standins/corvane/company_database.h"

namespace tallyra::standins::corvane::testing {
namespace {

TEST(CorvaneDatabase, ReadsAQueryFromItsFirstRowToItsLast) {
  const CompanyDatabase database;
  const automation::Object connection = database.open();
  EXPECT_EQ(execute(connection, "Insert Into PARTS(PARTNO,PARTNM) Values('A','one'),('B',Null)"), 2);
  const Query parts(connection, "Select PARTNO,PARTNM From PARTS Order By PARTNO");
  ASSERT_FALSE(parts.at_end());
  EXPECT_EQ(parts.value("PARTNO"), automation::Value("A"));
  EXPECT_EQ(parts.value("partnm"), automation::Value("one"));
  parts.move_next();
  ASSERT_FALSE(parts.at_end());
  EXPECT_TRUE(parts.value("PARTNM").is_null());
  parts.move_next();
  EXPECT_TRUE(parts.at_end());
  parts.close();
}

TEST(CorvaneDatabase, AQueryHoldsItsConnection) {
  const CompanyDatabase database;
  database.run({"Insert Into PARTS(PARTNO) Values('A')"});
  const Query parts(database.open(), "Select PARTNO From PARTS");
  EXPECT_EQ(parts.value("PARTNO"), automation::Value("A"));
}

TEST(CorvaneDatabase, TellsTheErrorsOfAdo) {
  const CompanyDatabase database;
  const automation::Object connection = database.open();
  EXPECT_THROW(execute(connection, "Insert Into NOWHERE Values(1)"), automation::Error);
  EXPECT_THROW(open_connection("DRIVER={no such driver}"), automation::Error);
  EXPECT_EQ(execute(connection, "Delete From PARTS"), 0);
}

TEST(CorvaneDatabase, AMissingNumberIsZero) {
  EXPECT_EQ(number_or_zero(automation::Null{}), 0);
  EXPECT_EQ(number_or_zero(automation::Value()), 0);
  EXPECT_EQ(number_or_zero("1.5"), 1.5);
}

TEST(CorvaneDatabase, AQuotedTextStaysOneText) {
  EXPECT_EQ(quoted_text(""), "''");
  EXPECT_EQ(quoted_text("O'Brien"), "'O''Brien'");
  EXPECT_EQ(quoted_text("''"), "''''''");
  std::string out = "A=";
  append_quoted(out, "'; Drop Table T --");
  EXPECT_EQ(out, "A='''; Drop Table T --'");
}

}  // namespace
}  // namespace tallyra::standins::corvane::testing
