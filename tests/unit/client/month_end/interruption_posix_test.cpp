#include <gtest/gtest.h>

#include <csignal>

#include "client/month_end/interruption.h"

namespace tallyra::client {
namespace {

TEST(Interruptions, AreCountedInsteadOfEndingTheProcess) {
  const Interruptions interruptions;
  EXPECT_EQ(Interruptions::count(), 0);
  ::raise(SIGINT);
  EXPECT_EQ(Interruptions::count(), 1);
  ::raise(SIGTERM);
  EXPECT_EQ(Interruptions::count(), 2);
}

TEST(Interruptions, AreAlsoATerminalThatIsClosed) {
  const Interruptions interruptions;
  ::raise(SIGHUP);
  EXPECT_EQ(Interruptions::count(), 1);
}

TEST(Interruptions, BeginAtNoneEachTime) {
  {
    const Interruptions interruptions;
    ::raise(SIGINT);
  }
  const Interruptions interruptions;
  EXPECT_EQ(Interruptions::count(), 0);
}

TEST(InterruptionsDeathTest, EndTheProcessWithTheThird) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_EXIT(
      {
        const Interruptions interruptions;
        for (int i = 0; i < 3; ++i) ::raise(SIGINT);
      },
      testing::KilledBySignal(SIGINT), "");
}

TEST(InterruptionsDeathTest, EndTheProcessAtOnceWhenNobodyCountsThem) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_EXIT(
      {
        { const Interruptions interruptions; }
        ::raise(SIGTERM);
      },
      testing::KilledBySignal(SIGTERM), "");
}

}  // namespace
}  // namespace tallyra::client
