#include "bench/connection_key.h"

#include <gtest/gtest.h>

namespace tallyra::bench {
namespace {

TEST(ConnectionKey, IsFoundWhateverItsLettersAndPlace) {
  const char* const text = "DRIVER={SQLite3};database=/a/b.db;Timeout=50";
  EXPECT_EQ(connection_key(text, "Driver"), "SQLite3");
  EXPECT_EQ(connection_key(text, "Database"), "/a/b.db");
  EXPECT_EQ(connection_key(text, "TIMEOUT"), "50");
}

TEST(ConnectionKey, IsEmptyWhereItIsNotThere) {
  EXPECT_EQ(connection_key("DRIVER={SQLite3};;Timeout", "Timeout"), "");
  EXPECT_EQ(connection_key("", "Timeout"), "");
}

}  // namespace
}  // namespace tallyra::bench
