#include <gtest/gtest.h>

#include <sstream>

#include "client/manual.h"
#include "client/verbs/verb.h"
#include "tests/support/file_text.h"

namespace tallyra::client {
namespace {

TEST(Manual, IsKeptAsTheVerbsAre) {
  EXPECT_EQ(tests::file_text(TALLYRA_DOCS "/tallyra-client.1"), manual_page())
      << "scripts/generate.sh writes it anew";
}

TEST(Manual, HasTheOptionsThatStandWithoutAVerb) {
  const std::string page = manual_page();
  for (const char* name : {"version", "list"})
    EXPECT_NE(page.find(".TP\n\\fB\\-\\-" + std::string(name) + "\\fR\n"), std::string::npos) << name;
}

TEST(Manual, HasEveryVerbWithItsOptions) {
  const std::string page = manual_page();
  for (const Verb* verb : verbs()) {
    EXPECT_NE(page.find("\n.SS " + std::string(verb->name) + "\n"), std::string::npos) << verb->name;
    for (const Option& option : verb->options) {
      std::string name;
      for (const char c : option.name) name += c == '-' ? "\\-" : std::string(1, c);
      EXPECT_NE(page.find("\\fB" + name + "\\fR"), std::string::npos) << option.name;
    }
  }
}

// Nothing that man would take for a request of its own.
TEST(Manual, HasNoLineThatManWouldMistake) {
  std::istringstream page(manual_page());
  for (std::string line; std::getline(page, line);)
    if (line.starts_with('.') || line.starts_with('\'')) {
      EXPECT_TRUE(line.starts_with(".TH ") || line.starts_with(".SH ") || line.starts_with(".SS ") ||
                  line == ".TP" || line == ".PP" || line == ".nf" || line == ".fi" || line == ".br")
          << line;
    }
}

}  // namespace
}  // namespace tallyra::client
