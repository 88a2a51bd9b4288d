#include "client/help_text.h"

#include <gtest/gtest.h>

#include "client/catalogue.h"
#include "client/exit_status.h"
#include "client/verbs/verb.h"

namespace tallyra::client {
namespace {

TEST(HelpText, NamesEveryVerbClassAndExitStatus) {
  const std::string text = help_details();
  for (const Verb* verb : verbs())
    EXPECT_NE(text.find("\n  " + std::string(verb->name) + " "), std::string::npos) << verb->name;
  for (const ClassEntry& entry : catalogue())
    EXPECT_NE(text.find("\n  " + std::string(entry.name) + " "), std::string::npos) << entry.name;
  for (const auto& [status, meaning] : exit_meanings())
    EXPECT_NE(text.find("\n  " + std::to_string(status) + " "), std::string::npos) << meaning;
}

}  // namespace
}  // namespace tallyra::client
