#include "client/catalogue.h"

#include <gtest/gtest.h>

#include <set>

#include "client/call.h"

namespace tallyra::client {
namespace {

TEST(Catalogue, HoldsTenClassesWithoutRepetition) {
  std::set<std::string_view> names;
  for (const auto& entry : catalogue()) {
    names.insert(entry.name);
    std::set<std::string_view> members;
    for (const auto& member : entry.members) members.insert(member.name);
    EXPECT_EQ(members.size(), entry.members.size()) << entry.name;
    EXPECT_FALSE(members.empty()) << entry.name;
  }
  EXPECT_EQ(names.size(), 10U);
}

TEST(Catalogue, FindsAClassByNameOrProgIdInAnyCase) {
  for (const char* name : {"CStockClose", "cstockclose", "Tallyra.CStockClose", "TALLYRA.CSTOCKCLOSE"}) {
    const ClassEntry* entry = find_class(name);
    ASSERT_NE(entry, nullptr) << name;
    EXPECT_EQ(entry->name, "CStockClose");
  }
  for (const char* name : {"CStockClos", "Corvane.CStockClose", "Tallyra.", ""})
    EXPECT_EQ(find_class(name), nullptr) << name;
}

TEST(Catalogue, HintsAtTheArgumentsOfAMember) {
  EXPECT_EQ(usage_hint("Tallyra.CRevAddr", "update"), "; write: Update cAddrNo COLUMN=value...");
  EXPECT_EQ(usage_hint("Tallyra.CRevAddr", "Approve"), "");
  EXPECT_EQ(usage_hint("Corvane.CSystem", "Read"), "");
}

// "cAddrNo COLUMN=value... [x]" must itself be words that the client accepts.
TEST(Catalogue, ShowsArgumentsAsTheCommandLineTakesThem) {
  for (const auto& entry : catalogue())
    for (const auto& member : entry.members) {
      std::vector<std::string> words{std::string(entry.name), std::string(member.name)};
      std::string arguments(member.arguments);
      for (std::size_t start = 0; start < arguments.size();) {
        const std::size_t end = std::min(arguments.find(' ', start), arguments.size());
        words.push_back(arguments.substr(start, end - start));
        start = end + 1;
      }
      const Call call = parse_call(words);
      const bool record = member.arguments.find("COLUMN=value") != std::string_view::npos;
      EXPECT_EQ(call.collections_after.has_value(), record || member.name == "Read")
          << entry.name << member.name;
    }
}

TEST(Catalogue, TextHasAHeadingPerClassAndALinePerMember) {
  const std::string text = catalogue_text();
  EXPECT_NE(text.find("Tallyra.CStockClose: month-end close\n  Read pCloseDT @\n"), std::string::npos);
}

}  // namespace
}  // namespace tallyra::client
