#include "server/com/thread_use.h"

#include <gtest/gtest.h>

#include <thread>

namespace tallyra::tests::com {
namespace {

using server::com::ThreadUse;

TEST(ThreadUse, BelongsToTheThreadThatMadeIt) {
  const ThreadUse use;
  EXPECT_TRUE(use.on_own_thread());
  bool elsewhere = true;
  std::thread([&] { elsewhere = use.on_own_thread(); }).join();
  EXPECT_FALSE(elsewhere);
}

// The system gives the id of a thread that has ended to another.
TEST(ThreadUse, OfAThreadThatHasEndedIsNobodysAgain) {
  ThreadUse use;
  std::thread([&] { use = ThreadUse(); }).join();
  for (int i = 0; i < 50; ++i) {
    bool owned = true;
    std::thread([&] { owned = use.on_own_thread(); }).join();
    EXPECT_FALSE(owned);
  }
  EXPECT_FALSE(use.on_own_thread());
}

}  // namespace
}  // namespace tallyra::tests::com
