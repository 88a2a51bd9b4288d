#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

#include "client/catalogue.h"
#include "client/manual.h"
#include "client/verbs/verb.h"

namespace tallyra::client {
namespace {

std::string kept(const char* name) {
  std::ifstream in(std::string(TALLYRA_DOCS) + "/" + name, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

TEST(Manual, IsKeptAsTheVerbsAre) {
  EXPECT_EQ(kept("tallyra-client.1"), manual_page()) << "scripts/generate.sh writes it anew";
}

TEST(Completion, IsKeptAsTheVerbsAre) {
  EXPECT_EQ(kept("tallyra-client.bash"), bash_completion()) << "scripts/generate.sh writes it anew";
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

#ifndef _WIN32
// What bash offers for words, the last of which is being typed.
std::string offered(const std::string& words) {
  const std::string command = "bash -c 'source " + std::string(TALLYRA_DOCS) +
                              "/tallyra-client.bash; COMP_WORDS=(" + words +
                              "); COMP_CWORD=$((${#COMP_WORDS[@]}-1)); _tallyra_client; "
                              "echo \"${COMPREPLY[*]}\"' 2>&1";
  std::FILE* pipe = popen(command.c_str(), "r");
  std::string text;
  char buffer[4096];
  for (std::size_t read = 0; (read = std::fread(buffer, 1, sizeof buffer, pipe)) > 0;)
    text.append(buffer, read);
  pclose(pipe);
  return text;
}

TEST(Completion, OffersWhatFits) {
  EXPECT_EQ(offered("tallyra-client rep reo"), "\n") << "an argument of another word";
  EXPECT_EQ(offered("tallyra-client reo"), "reopen\n");
  EXPECT_EQ(offered("tallyra-client --db x.db reo"), "reopen\n");
  EXPECT_EQ(offered("tallyra-client count \"\""), "sheet import approve undo\n");
  EXPECT_EQ(offered("tallyra-client count sheet --bl"), "--blind\n");
  EXPECT_EQ(offered("tallyra-client close 2024/01/31 --back"), "--backup\n");
  EXPECT_EQ(offered("tallyra-client CRevAddr Re"), "Read\n");
}
#endif

}  // namespace
}  // namespace tallyra::client
