#include "client/background_thread.h"

#include <gtest/gtest.h>

#include <chrono>
#include <thread>

namespace tallyra::client {
namespace {

using std::chrono::hours;
using std::chrono::milliseconds;
using std::chrono::steady_clock;

TEST(BackgroundThread, SleepsForTheTimeThatItAsksFor) {
  bool slept = false;
  steady_clock::duration time{};
  bool done = false;
  const auto work = [&](BackgroundThread& itself) {
    const auto begin = steady_clock::now();
    slept = itself.sleep(milliseconds(20));
    time = steady_clock::now() - begin;
    done = true;
    EXPECT_FALSE(itself.sleep(hours(1)));
  };
  {
    const BackgroundThread thread(work);
    std::this_thread::sleep_for(milliseconds(500));
  }
  EXPECT_TRUE(done);
  EXPECT_TRUE(slept);
  EXPECT_GE(time, milliseconds(19));
}

TEST(BackgroundThread, IsWokenByItsEndForEverySleepToCome) {
  int woken = 0;
  const auto work = [&](BackgroundThread& itself) {
    for (int i = 0; i < 3; ++i) woken += itself.sleep(hours(1)) ? 0 : 1;
  };
  { const BackgroundThread thread(work); }
  EXPECT_EQ(woken, 3);
}

// One for each call of a batch: ended before it sleeps, while it falls asleep, and when it has slept for a
// while.
TEST(BackgroundThread, EndsWheneverItIsToldTo) {
  int woken = 0;
  const auto work = [&](BackgroundThread& itself) { woken += itself.sleep(hours(1)) ? 0 : 1; };
  constexpr int rounds = 2000;
  for (int round = 0; round < rounds; ++round) {
    const BackgroundThread thread(work);
    if (round % 4 != 0) std::this_thread::sleep_for(std::chrono::microseconds(round % 400));
  }
  EXPECT_EQ(woken, rounds);
}

}  // namespace
}  // namespace tallyra::client
