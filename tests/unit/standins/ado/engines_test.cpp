#include "standins/ado/engines.h"

#include <vector>

#include "standins/ado/trace.h"
#include "tests/unit/standins/ado/scratch_database.h"

namespace tallyra::standins::ado::test {
namespace {

using EnginesTest = ScratchDatabase;

TEST_F(EnginesTest, AStringThatNamesTheProviderGoesToOdbc) {
  const auto session = open_session("Provider=MSDASQL;" + odbc_string(), "", "", 0);
  EXPECT_EQ(session->information(Information::dbms_name), "SQLite");
  EXPECT_NE(session->information(Information::driver_name), "");
  EXPECT_FALSE(session->in_transaction());
}

TEST_F(EnginesTest, EveryWayLeadsToTheSameDatabase) {
  const auto one = open_session("Provider=MSDASQL;" + odbc_string(), "", "", 0);
  const auto other = open_session(odbc_string(), "", "", 0);
  one->run("create table T(A integer)", false);
  one->run("insert into T values(7)", false);
  const StatementResult found = other->run("select A from T", false);
  ASSERT_TRUE(found.rows);
  ASSERT_EQ(found.rows->row_count(), 1U);
  EXPECT_EQ(found.rows->value(0, 0), Value(7));
}

TEST_F(EnginesTest, AnotherProviderIsError3706) {
  EXPECT_EQ(error_of([&] { open_session("Provider=Other;" + odbc_string(), "", "", 0); }), 3706);
}

TEST_F(EnginesTest, WhatTheEngineSaysReachesTheCaller) {
  EXPECT_NE(error_of([] { open_session("DRIVER={no such driver}", "", "", 0); }), 0);
  EXPECT_NE(description_of([] { open_session("DRIVER={no such driver}", "", "", 0); }), "");
}

}  // namespace
}  // namespace tallyra::standins::ado::test
