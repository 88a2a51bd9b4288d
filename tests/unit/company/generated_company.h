#pragma once

#include <gtest/gtest.h>

#include <map>
#include <string>

#include "tests/unit/company/company_folder.h"

namespace tallyra::tests::generated_company {

// A small company, made anew for each test.
class GeneratedCompany : public testing::Test {
 protected:
  // Names what is wrong for every query that finds a row.
  void expect_none(const std::map<std::string, std::string>& searches) {
    for (const auto& [what, search] : searches) EXPECT_EQ(value_of(database, search), "no row") << what;
  }

  CompanyFolder folder;
  company::Database database{folder.company_database()};
};

}  // namespace tallyra::tests::generated_company
