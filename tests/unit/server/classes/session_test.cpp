#include <gtest/gtest.h>

#include "tests/unit/server/classes/described_class.h"

// What clients were compiled against: never to change.
namespace tallyra::server {
namespace {

TEST(SessionProperties, AreTheFirstOfEveryClass) {
  EXPECT_EQ(classes().size(), 10U);
  for (const auto& table : classes())
    EXPECT_EQ(described(table, false),
              "1 put Language(value text)\n"
              "2 put SystemDatabase(value text)\n"
              "3 get ErrNumber(): single\n"
              "4 get ErrDescription(): text\n"
              "5 put UserID(value text)\n"
              "6 put ConnectionString(value text)\n")
        << table.name;
}

}  // namespace
}  // namespace tallyra::server
