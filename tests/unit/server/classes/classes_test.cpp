#include <gtest/gtest.h>

#include "tests/unit/server/classes/described_class.h"

// What a browser of objects shows: a sentence for every class, member, parameter and result.
namespace tallyra::server {
namespace {

TEST(Classes, EverythingHasItsHelp) {
  for (const auto& table : classes()) {
    SCOPED_TRACE(table.name);
    for (const auto text : {table.about.help, table.about.registered_as, table.about.purpose})
      EXPECT_FALSE(text.empty());
    for (const auto& member : table.members) {
      EXPECT_FALSE(member.help.empty()) << member.name;
      EXPECT_EQ(member.result_help.empty(), member.result == ResultType::none) << member.name;
      for (const auto& parameter : member.parameters)
        EXPECT_FALSE(parameter.help.empty()) << member.name << "." << parameter.name;
    }
  }
}

}  // namespace
}  // namespace tallyra::server
