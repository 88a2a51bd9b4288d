#include "company/number_counters.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "tests/unit/company/copied_company.h"

namespace {

using namespace tallyra::tests::generated_company;
using company::AdoConnection;
using company::NumberCounters;

TEST(NumberCounters, StandInAFileBesideAnSqliteDatabase) {
  const CopiedCompany source;
  const std::string target = CopiedCompany::sqlite(source.file("target.db"));
  company::upgrade_schema(target);
  const AdoConnection from(CopiedCompany::sqlite(source.path()));
  const AdoConnection to(target);
  const NumberCounters numbers(from, to, target);
  ASSERT_TRUE(numbers.issued());
  EXPECT_EQ(numbers.source().number("SELECT COUNT(*) FROM TABLEKEYS"), 2);
  EXPECT_EQ(numbers.target().number("SELECT COUNT(*) FROM TABLEKEYS"), 0);
  EXPECT_NE(&numbers.target(), &to);
  EXPECT_TRUE(std::filesystem::exists(source.file("target.db.keys")));
}

TEST(NumberCounters, ADatabaseThatNeverIssuedOneHasNoneAndGetsNoFile) {
  const CompanyFolder folder;
  const std::string path = folder.file("source.db");
  tallyra::tests::sqlite_engine.empty_database();
  company::upgrade_schema(path);
  const AdoConnection from(CopiedCompany::sqlite(path));
  const NumberCounters numbers(from, from, CopiedCompany::sqlite(path));
  EXPECT_FALSE(numbers.issued());
  EXPECT_FALSE(std::filesystem::exists(path + ".keys"));
}

}  // namespace
