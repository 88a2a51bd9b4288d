#include <gtest/gtest.h>

#include <sstream>

#include "client/verbs/verb.h"

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

TEST(Verbs, AreEachInTheTableOnce) {
  for (const Verb* verb : verbs()) {
    std::vector<std::string> words;
    std::istringstream name{std::string(verb->name)};
    for (std::string word; name >> word;) words.push_back(word);
    EXPECT_EQ(find_verb(words).verb, verb) << verb->name;
  }
}

}  // namespace
}  // namespace tallyra::client
