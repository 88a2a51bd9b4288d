#include "client/verbs/verb.h"

#include "tests/unit/client/client_run.h"
#include "tests/unit/client/usage_error_text.h"

namespace tallyra::client {
namespace {

TEST(Verbs, AreToldInFullAndRun) {
  for (const Verb* verb : verbs()) {
    EXPECT_NE(verb->summary, "") << verb->name;
    EXPECT_NE(verb->help, "") << verb->name;
    EXPECT_FALSE(verb->examples.empty()) << verb->name;
    EXPECT_LE(verb->least_arguments, verb->most_arguments) << verb->name;
    EXPECT_TRUE(verb->run || verb->name == "call") << verb->name;
    const std::string help = verb_help(*verb);
    for (const Option& option : verb->options)
      EXPECT_NE(help.find(option.name), std::string::npos) << verb->name << " " << option.name;
  }
}

TEST(Verbs, AreFoundInAnyCase) {
  const std::vector<std::string> words{"LOG", "x"};
  EXPECT_EQ(find_verb(words).verb->name, "log");
  EXPECT_EQ(find_verb(words).words, 1U);
  EXPECT_EQ(find_verb(std::vector<std::string>{"CRevAddr", "Read"}).verb, nullptr);
}

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

TEST_F(Client, TakesARawCallBehindTheWordCallToo) {
  script_class("Tallyra.CRevAddr", "Delete", [](automation::Arguments) { return automation::Value(100.0F); });
  EXPECT_EQ(run({"call", "CRevAddr", "Delete", "A1"}), exit_done);
  EXPECT_EQ(run({"--json", "call", "CRevAddr", "Delete", "A1"}), exit_done);
}

}  // namespace
}  // namespace tallyra::client
