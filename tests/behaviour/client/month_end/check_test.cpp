#include "client/month_end/check.h"

#include <gtest/gtest.h>

#include "company/generator.h"
#include "standins/ado/local_classes.h"
#include "tests/support/company_database.h"
#include "tests/support/test_folder.h"

namespace tallyra::client {
namespace {

std::string found_in(const std::string& file, const char* date) {
  const Reader reader("DRIVER={SQLite3};Database=" + file, "MSACCESS");
  std::string names;
  for (const auto& entry : check_close(reader, *automation::parse_date(date)).entries)
    names += std::string(entry.finding->severity == Severity::error ? "error " : "warning ") +
             std::string(entry.finding->name) + " " + std::to_string(entry.found.count) + "\n";
  return names;
}

// The company that everybody is shown: what stands here is what its check says.
TEST(SampleCompany, HasNoErrorAndTheseWarnings) {
  const tests::TestFolder folder;
  company::Options options;
  options.database = folder.file("company.db");
  options.schema = TALLYRA_SCHEMA;
  company::generate(options, [](int) {});
  standins::ado::register_classes();
  EXPECT_EQ(found_in(options.database, "2024/01/31"),
            "warning unapproved-documents 35\n"
            "warning no-cost 98\n");
}

TEST(EmptyCompany, HasNoFinding) {
  const behaviour::CompanyDatabase company;
  const Reader reader(company.connection_string(), "MSACCESS");
  EXPECT_TRUE(check_close(reader, *automation::parse_date("2024/01/31")).entries.empty());
}

}  // namespace
}  // namespace tallyra::client
