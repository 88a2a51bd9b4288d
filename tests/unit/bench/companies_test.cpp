#include "bench/companies.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "bench/connection_key.h"
#include "bench/month_close.h"
#include "bench/sqlite_database.h"
#include "server/local_classes.h"
#include "standins/ado/local_classes.h"
#include "standins/corvane/local_classes.h"
#include "standins/lexbank/local_classes.h"
#include "tests/support/test_folder.h"

namespace tallyra::bench {
namespace {

constexpr CompanySize tiny{2, 30, 200};

class CompaniesTest : public ::testing::Test {
 protected:
  CompaniesTest() {
    server::register_classes();
    standins::ado::register_classes();
    standins::corvane::register_classes();
    standins::lexbank::register_classes();
  }

  static std::string file_of(const Company& company) {
    return connection_key(company.connection_string(), "Database");
  }
  static std::int64_t number(const Company& company, const char* sql) {
    return SqliteDatabase(file_of(company)).number(sql);
  }

  tests::TestFolder folder_;
  Companies companies_{folder_.path(), TALLYRA_SCHEMA};
};

TEST_F(CompaniesTest, HaveTheirFirstMonthClosed) {
  const auto company = companies_.company(tiny);
  company->renew();
  EXPECT_EQ(number(*company, "select count(*) from STKCLOSEHD where CLOSEDT='2024-01-31 00:00:00'"), 1);
  EXPECT_EQ(number(*company, "select count(*) from STKCLOSEHD"), 1);
  EXPECT_EQ(number(*company, "select count(*) from DEPARTS"), 2);
}

TEST_F(CompaniesTest, AreAsTheyWereAfterEachRenewal) {
  const auto company = companies_.company(tiny);
  company->renew();
  SqliteDatabase(file_of(*company)).execute("delete from DEPARTS");
  company->renew();
  EXPECT_EQ(number(*company, "select count(*) from DEPARTS"), 2);
}

TEST_F(CompaniesTest, OfOneSizeAreMadeOnce) {
  companies_.company(tiny);
  const auto original = folder_.file("2-30-200.db");
  const auto made = std::filesystem::last_write_time(original);
  companies_.company(tiny);
  EXPECT_EQ(std::filesystem::last_write_time(original), made);
}

TEST_F(CompaniesTest, CanBeChangedWithoutTouchingThoseOfTheirSize) {
  const auto changed = companies_.changed(tiny, "bare", {"delete from DEPARTS", "delete from PARTS"});
  changed->renew();
  EXPECT_EQ(number(*changed, "select (select count(*) from DEPARTS)+(select count(*) from PARTS)"), 0);
  const auto company = companies_.company(tiny);
  company->renew();
  EXPECT_EQ(number(*company, "select count(*) from PARTS"), 30);
}

TEST_F(CompaniesTest, OnPlainIndexesCloseWithTheSameRows) {
  const Scenario plain = month_close_on_plain_indexes(companies_, tiny);
  const Scenario covering = month_close(companies_, tiny);
  const auto rows_of = [](const Scenario& scenario) {
    const auto company = scenario.company();
    company->renew();
    return scenario.run(company->connection_string());
  };
  const std::uint64_t rows = rows_of(covering);
  EXPECT_GT(rows, 0U);
  EXPECT_EQ(rows_of(plain), rows);
  // The last company that was renewed is the one on plain indexes.
  EXPECT_EQ(number(*plain.company(), "select count(*) from sqlite_master where name='STKTRANDT_BY_PART'"), 0);
  EXPECT_EQ(
      number(*plain.company(), "select count(*) from sqlite_master where name like 'PLAIN~_%' escape '~'"),
      6);
}

}  // namespace
}  // namespace tallyra::bench
