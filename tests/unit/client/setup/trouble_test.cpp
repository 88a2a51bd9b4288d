#include "client/setup/trouble.h"

#include <gtest/gtest.h>

namespace tallyra::client {
namespace {

TEST(Trouble, IsToldInOneLineWhateverTheDriverPutsIntoIt) {
  EXPECT_EQ(error_text({7, "server closed\n\tthe connection\r\n\x1B"}),
            "error 7: server closed the connection");
}

TEST(Trouble, WithALockIsWaitedFor) {
  for (const char* text : {"error -2147467259: database is locked", "[SQLite]database table is locked (6)",
                           "ERROR: canceling statement due to lock timeout;"}) {
    const auto advice = advice_against(text);
    ASSERT_TRUE(advice) << text;
    EXPECT_NE(advice->find("wait until the one who holds the lock"), std::string::npos) << *advice;
    EXPECT_EQ(advice->find("backup"), std::string::npos) << *advice;
  }
}

TEST(Trouble, WithRightsAsksForThem) {
  for (const char* text : {"error 1: attempt to write a readonly database", "unable to open database file",
                           "ERROR: permission denied for table userrights"}) {
    const auto advice = advice_against(text);
    ASSERT_TRUE(advice) << text;
    EXPECT_NE(advice->find("the file of the database and the folder around it"), std::string::npos)
        << *advice;
  }
}

TEST(Trouble, OfAnotherKindHasNoAdviceOfItsOwn) {
  EXPECT_FALSE(advice_against("file is not a database"));
  EXPECT_FALSE(advice_against("database disk image is malformed"));
}

}  // namespace
}  // namespace tallyra::client
