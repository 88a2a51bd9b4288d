#include "automation/clock.h"

#include <gtest/gtest.h>

#include <thread>

namespace tallyra::automation {
namespace {

constexpr double noon_of_a_day = 45382.5;

TEST(Clock, TellsTheTimeThatItIsGiven) {
  const ScopedClock clock([] { return Date{noon_of_a_day}; });
  EXPECT_EQ(now(), Date{noon_of_a_day});
  EXPECT_EQ(today(), Date{45382});
}

TEST(Clock, GoesBackToTheOneBeforeIt) {
  const ScopedClock outer([] { return Date{1}; });
  {
    const ScopedClock inner([] { return Date{2}; });
    EXPECT_EQ(now(), Date{2});
  }
  EXPECT_EQ(now(), Date{1});
}

TEST(Clock, IsReplacedForItsOwnThreadAlone) {
  const ScopedClock clock([] { return Date{1}; });
  Date elsewhere;
  std::thread([&] { elsewhere = now(); }).join();
  EXPECT_NE(elsewhere, Date{1});
}

TEST(Clock, OfTheSystemShowsWholeSecondsInOrder) {
  const Date first = now();
  const Date second = now();
  EXPECT_LE(first.serial, second.serial);
  EXPECT_GE(civil_time(first).year, 2024);
  EXPECT_EQ(date_from_civil(civil_time(first)), first);
}

}  // namespace
}  // namespace tallyra::automation
