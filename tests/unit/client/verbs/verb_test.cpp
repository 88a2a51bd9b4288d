#include "client/verbs/verb.h"

#include "tests/unit/client/client_run.h"
#include "tests/unit/client/usage_error_text.h"

namespace tallyra::client {
namespace {

TEST(Verbs, AreFoundInAnyCase) {
  const std::vector<std::string> words{"LOG", "x"};
  EXPECT_EQ(find_verb(words).verb->name, "log");
  EXPECT_EQ(find_verb(words).words, 1U);
  EXPECT_EQ(find_verb(std::vector<std::string>{"CRevAddr", "Read"}).verb, nullptr);
}

TEST_F(Client, SuggestsTheVerbOrClassThatWasMeant) {
  for (const auto& [word, meant] : {std::pair{"lgo", "log"}, std::pair{"CRevAdr", "CRevAddr"}}) {
    error_.str("");
    EXPECT_EQ(run({word, "x"}), exit_wrong_usage);
    EXPECT_EQ(error_.str(), "tallyra-client: there is no verb or class '" + std::string(word) +
                                "'; did you mean '" + meant + "'?\nTry 'tallyra-client --help'.\n");
  }
}

TEST_F(Client, ListsTheVerbsThatBeginAlike) {
  EXPECT_EQ(run({"help", "count"}), exit_done);
  const std::string listed = out_.str();
  for (const char* usage : {"  count sheet DEPARTMENT DATE", "  count import FILE", "  count approve CHECKNO",
                            "  count undo CHECKNO"})
    EXPECT_NE(listed.find(usage), std::string::npos) << usage << "\n" << listed;
  out_.str("");
  EXPECT_EQ(run({"count", "--help"}), exit_done);
  EXPECT_EQ(out_.str(), listed);
  EXPECT_EQ(run({"count"}), exit_wrong_usage);
}

TEST_F(Client, NeedsADatabaseForAVerb) {
  EXPECT_EQ(run({"log"}), exit_wrong_usage);
  EXPECT_NE(error_.str().find("no database was given: name one by --db"), std::string::npos) << error_.str();
  error_.str("");
  environment_["TALLYRA_DB"] = "/no/such.db";
  EXPECT_EQ(run({"log"}), exit_wrong_usage);
  EXPECT_NE(error_.str().find("TALLYRA_DB '/no/such.db': no such file"), std::string::npos) << error_.str();
}

TEST_F(Client, RefusesTooManyWords) {
  EXPECT_EQ(run({"log", "January"}), exit_wrong_usage);
  EXPECT_NE(error_.str().find("log takes nothing; 1 argument was given"), std::string::npos) << error_.str();
}

}  // namespace
}  // namespace tallyra::client
