#include "client/setup/rights_library.h"

#include <gtest/gtest.h>

#include "client/setup/functions.h"
#include "tests/support/company_database.h"

namespace tallyra::client {
namespace {

TEST(RightsLibrary, AnswersAsTheClassesAreTold) {
  const behaviour::CompanyDatabase company;
  company.grant("CLERK", "CANINSERT,OWNER");
  Session session;
  session.connection_string = company.connection_string();
  const RightsLibrary clerk(session, "CLERK");
  EXPECT_EQ(clerk.table(), "USERRIGHTS");
  const RightFlags flags = clerk.rights("STK028ADDR");
  ASSERT_EQ(flags.size(), right_names().size());
  for (std::size_t i = 0; i < flags.size(); ++i) {
    const std::string_view word = right_names()[i].word;
    EXPECT_EQ(flags[i], word == "insert" || word == "owner") << word;
  }
  EXPECT_EQ(RightsLibrary(session, "NOBODY").rights("STK028ADDR"), RightFlags(flags.size(), false));
}

}  // namespace
}  // namespace tallyra::client
