#include "client/exit_status.h"

#include <gtest/gtest.h>

#include <set>

namespace tallyra::client {
namespace {

// Scripts depend on them.
TEST(ExitStatus, NeverChangesItsNumber) {
  EXPECT_EQ(exit_done, 0);
  EXPECT_EQ(exit_failed, 1);
  EXPECT_EQ(exit_wrong_usage, 2);
  EXPECT_EQ(exit_locked, 4);
  EXPECT_EQ(exit_interrupted, 130);
}

TEST(ExitStatus, HasOneMeaningEach) {
  std::set<int> numbers;
  std::set<std::string_view> meanings;
  for (const ExitMeaning& each : exit_meanings()) {
    EXPECT_TRUE(numbers.insert(each.status).second) << each.status;
    EXPECT_TRUE(meanings.insert(each.meaning).second) << each.meaning;
    EXPECT_FALSE(each.meaning.empty());
  }
  EXPECT_TRUE(numbers.contains(exit_done));
  EXPECT_TRUE(numbers.contains(exit_interrupted));
}

}  // namespace
}  // namespace tallyra::client
