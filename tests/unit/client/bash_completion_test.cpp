#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "client/manual.h"
#include "tests/support/file_text.h"

namespace tallyra::client {
namespace {

TEST(Completion, IsKeptAsTheVerbsAre) {
  EXPECT_EQ(tests::file_text(TALLYRA_DOCS "/tallyra-client.bash"), bash_completion())
      << "scripts/generate.sh writes it anew";
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
  EXPECT_EQ(offered("tallyra-client --vers"), "--version\n");
  EXPECT_EQ(offered("tallyra-client list CRev"), "CRevAddr\n");
  EXPECT_EQ(offered("tallyra-client list CStkr"), "\n") << "keeps no records";
  EXPECT_EQ(offered("tallyra-client call CTranH"), "CTranHead\n");
  EXPECT_EQ(offered("tallyra-client call CRevAddr Re"), "Read\n");
  EXPECT_EQ(offered("tallyra-client help CTranH"), "CTranHead\n");
  EXPECT_EQ(offered("tallyra-client help reo"), "reopen\n");
  EXPECT_EQ(offered("tallyra-client grant ANNA STK027"), "STK027CLOSE\n");
  EXPECT_EQ(offered("tallyra-client grant ANNA STK027CLOSE appr"), "approve\n");
  EXPECT_EQ(offered("tallyra-client revoke ANNA STK027CLOSE approve ins"), "insert\n");
}
#endif

}  // namespace
}  // namespace tallyra::client
