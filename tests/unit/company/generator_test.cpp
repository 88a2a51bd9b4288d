#include "company/generator.h"

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "tests/unit/company/generated_company.h"

namespace {

using namespace tallyra::tests::generated_company;

using Content = std::map<std::string, std::vector<std::vector<std::string>>>;

Content content_of(const std::string& path) {
  company::Database database(path);
  Content content;
  for (const auto& table : database.query("SELECT name FROM sqlite_master WHERE type='table'")) {
    content[table[0]] = database.query("SELECT * FROM " + table[0]);
  }
  return content;
}

TEST(CompanyContent, IsTheSameForTheSameSeed) {
  const CompanyFolder folder;
  const Content first = content_of(folder.company_database("first.db"));
  EXPECT_EQ(first.at("STKTRANDT").size(), 1200U);
  EXPECT_EQ(first, content_of(folder.company_database("second.db")));
}

TEST(CompanyContent, IsAnotherForAnotherSeed) {
  const CompanyFolder folder;
  auto options = folder.options("other.db");
  options.seed = 2;
  company::generate(options, [](int) {});
  const Content first = content_of(folder.company_database());
  const Content other = content_of(options.database);
  for (const char* table : {"PARTS", "SUPPLIERS", "STKTRANHD", "STKTRANDT", "PODT", "CODETAIL", "SODTBOM"}) {
    EXPECT_NE(first.at(table), other.at(table)) << table;
  }
}

// Known values, so that no change of the generator, a compiler or a library goes unseen.
TEST(CompanyContent, DoesNotDependOnTheMachine) {
  const CompanyFolder folder;
  company::Database database(folder.company_database());
  EXPECT_EQ(
      value_of(database,
               "SELECT GROUP_CONCAT(PARTNO||' '||PARTNM) FROM (SELECT * FROM PARTS ORDER BY rowid LIMIT "
               "1,5)"),
      "Blä-00002 Nylon sheet 49 mm,R00003 Glass granulate 55 mm,RM-00004 Steel tube 5 mm,RM-00005ä Oak wire "
      "33 "
      "mm,Sub-00006-A Control carrier");
  EXPECT_EQ(value_of(database, "SELECT SUPPLIERNM FROM SUPPLIERS ORDER BY rowid LIMIT 1"),
            "Riverside Glass No. 1");
  EXPECT_EQ(
      value_of(database, "SELECT SUM(QTY)||' '||SUM(CAST(ROUND(UPRICE*100) AS INTEGER)) FROM STKTRANDT"),
      "50523.0 23757465");
}

TEST(CompanyContent, HasTheDefaultSize) {
  const CompanyFolder folder;
  company::Options options;
  options.database = folder.file("default.db");
  options.schema = SQLITE_SCHEMA;
  company::generate(options, [](int) {});
  company::Database database(options.database);
  EXPECT_EQ(value_of(database, "SELECT COUNT(*) FROM DEPARTS"), "6");
  EXPECT_EQ(value_of(database, "SELECT COUNT(*) FROM PARTS"), "300");
  EXPECT_EQ(value_of(database, "SELECT COUNT(*) FROM STKTRANDT"), "20000");
  EXPECT_EQ(value_of(database,
                     "SELECT GROUP_CONCAT(M) FROM (SELECT DISTINCT SUBSTR(TRANDT,1,7) AS M FROM STKTRANHD "
                     "ORDER BY M)"),
            "2024-01,2024-02,2024-03");
}

TEST_F(GeneratedCompany, IsNotYetClosed) {
  EXPECT_EQ(value_of(database, "SELECT COUNT(*) FROM STKCLOSEHD"), "0");
  EXPECT_EQ(
      value_of(database, "SELECT COUNT(*) FROM STKTRANHD WHERE TRANTYPE IN ('STK027CLOSE','STKCLOSEALL')"),
      "0");
}

}  // namespace
