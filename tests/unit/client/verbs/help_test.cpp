#include "tests/unit/client/client_run.h"

namespace tallyra::client {
namespace {

TEST_F(Client, TellsOfItselfAndOfItsVerbs) {
  EXPECT_EQ(run({"--version"}), exit_done);
  EXPECT_TRUE(out_.str().starts_with("tallyra-client ")) << out_.str();
  out_.str("");
  EXPECT_EQ(run({"help", "log"}), exit_done);
  const std::string help = out_.str();
  EXPECT_NE(help.find("--limit NUMBER"), std::string::npos) << help;
  out_.str("");
  EXPECT_EQ(run({"log", "--help"}), exit_done);
  EXPECT_EQ(out_.str(), help);
  out_.str("");
  EXPECT_EQ(run({"help", "CRevAddr"}), exit_done);
  EXPECT_NE(out_.str().find("  Read cAddrNo @\n"), std::string::npos) << out_.str();
  out_.str("");
  EXPECT_EQ(run({"--help"}), exit_done);
  EXPECT_NE(out_.str().find("  130  interrupted"), std::string::npos);
}

TEST_F(Client, TellsOfAVerbOrClassThatThereIsNot) {
  EXPECT_EQ(run({"help", "clsoe"}), exit_wrong_usage);
  EXPECT_NE(error_.str().find("there is no verb or class 'clsoe'; did you mean 'close'?"), std::string::npos)
      << error_.str();
}

}  // namespace
}  // namespace tallyra::client
