#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <vector>

#include "tests/unit/company/company_folder.h"

namespace {

using namespace tallyra::tests::generated_company;
using company::Options;
using company::Refusal;

void generate(const Options& options) {
  company::generate(options, [](int) {});
}

std::string refusal_of(const Options& options) {
  try {
    generate(options);
  } catch (const Refusal& refusal) {
    return refusal.what();
  }
  return "not refused";
}

TEST(CompanyOptions, SizesAreHonoured) {
  const CompanyFolder folder;
  Options options = folder.options("company.db", 77, 1234);
  options.departments = 9;
  options.months = 2;
  options.start = company::parse_month("2023-11");
  generate(options);
  company::Database database(options.database);
  EXPECT_EQ(value_of(database, "SELECT COUNT(*) FROM DEPARTS"), "9");
  EXPECT_EQ(value_of(database, "SELECT COUNT(*) FROM PARTS"), "77");
  EXPECT_EQ(value_of(database, "SELECT COUNT(*) FROM STKTRANDT"), "1234");
  EXPECT_EQ(value_of(database, "SELECT MIN(TRANDT) || ' ' || MAX(TRANDT) FROM STKTRANHD"),
            "2023-11-01 00:00:00 2023-12-31 00:00:00");
}

TEST(CompanyOptions, TheSmallestCompanyIsPossible) {
  const CompanyFolder folder;
  Options options = folder.options("company.db", company::min_parts, company::min_lines);
  options.departments = company::min_departments;
  options.months = company::min_months;
  generate(options);
  company::Database database(options.database);
  EXPECT_EQ(value_of(database, "SELECT COUNT(*) FROM STKTRANDT"), "100");
  EXPECT_EQ(value_of(database, "SELECT CHECKDT FROM STKCHECKHD"), "2024-01-31 00:00:00");
}

TEST(CompanyOptions, SizesOutOfRangeAreRefused) {
  const CompanyFolder folder;
  struct Row {
    const char* word;
    std::function<void(Options&)> change;
  };
  const Row rows[] = {{"departments", [](Options& options) { options.departments = 1; }},
                      {"departments", [](Options& options) { options.departments = 51; }},
                      {"parts", [](Options& options) { options.parts = 29; }},
                      {"parts", [](Options& options) { options.parts = 20'001; }},
                      {"lines", [](Options& options) { options.lines = 99; }},
                      {"lines", [](Options& options) { options.lines = 1'000'001; }},
                      {"months", [](Options& options) { options.months = 0; }},
                      {"months", [](Options& options) { options.months = 37; }},
                      {"no folder", [](Options& options) { options.database = "/nowhere/at/all.db"; }},
                      {"create script", [](Options& options) { options.schema = "/nowhere.sql"; }}};
  for (const Row& row : rows) {
    Options options = folder.options("company.db");
    row.change(options);
    EXPECT_NE(refusal_of(options).find(row.word), std::string::npos)
        << row.word << ": " << refusal_of(options);
    EXPECT_FALSE(std::filesystem::exists(options.database)) << row.word;
  }
}

TEST(CompanyOptions, TheStartIsAMonth) {
  EXPECT_EQ(company::parse_month("2024-02"), std::chrono::year{2024} / std::chrono::February);
  for (const char* text :
       {"", "2024", "2024-00", "2024-13", "2024/02", "24-02", "2024-2", "2004-12", "2024-02-01"}) {
    EXPECT_THROW(company::parse_month(text), Refusal) << text;
  }
}

TEST(CompanyOptions, AnExistingDatabaseIsNotOverwritten) {
  const CompanyFolder folder;
  for (const char* ending : {"", "-wal", "-shm", ".keys"}) {
    const Options options = folder.options("company.db");
    std::ofstream(options.database + ending) << "mine";
    EXPECT_NE(refusal_of(options).find("--force"), std::string::npos) << ending;
    std::string content;
    std::ifstream(options.database + ending) >> content;
    EXPECT_EQ(content, "mine") << ending;
    std::filesystem::remove(options.database + ending);
  }
}

TEST(CompanyOptions, ForceReplacesTheDatabaseWithTheFilesBesideIt) {
  const CompanyFolder folder;
  Options options = folder.options("company.db");
  for (const char* ending : {"", "-wal", "-shm", ".keys", ".keys-wal"}) {
    std::ofstream(options.database + ending) << "old";
  }
  options.replace = true;
  generate(options);
  for (const char* ending : {"-wal", "-shm", ".keys", ".keys-wal", ".growing"}) {
    EXPECT_FALSE(std::filesystem::exists(options.database + ending)) << ending;
  }
  company::Database database(options.database);
  EXPECT_EQ(value_of(database, "SELECT COUNT(*) FROM STKTRANDT"), "1200");
}

TEST(CompanyOptions, AFailureLeavesTheOldDatabaseAndNothingElse) {
  const CompanyFolder folder;
  const std::string path = folder.company_database();
  Options options = folder.options("company.db");
  options.replace = true;
  options.schema = folder.file("broken.sql");
  std::ofstream(options.schema) << "CREATE TABLE DEPARTS(DEPTNO VARCHAR(20));";
  EXPECT_THROW(generate(options), company::DatabaseError);
  EXPECT_FALSE(std::filesystem::exists(path + ".growing"));
  company::Database database(path);
  EXPECT_EQ(value_of(database, "SELECT COUNT(*) FROM STKTRANDT"), "1200");
}

TEST(CompanyOptions, ProgressReachesTheNumberOfLines) {
  const CompanyFolder folder;
  std::vector<int> seen;
  company::generate(folder.options("company.db"), [&seen](int lines) { seen.push_back(lines); });
  ASSERT_FALSE(seen.empty());
  EXPECT_TRUE(std::is_sorted(seen.begin(), seen.end()));
  EXPECT_EQ(seen.back(), 1200);
}

}  // namespace
