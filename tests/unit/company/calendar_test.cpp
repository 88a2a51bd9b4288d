#include "company/calendar.h"

#include <gtest/gtest.h>

namespace {

using namespace tallyra::company;
using namespace std::chrono_literals;

TEST(Calendar, DocumentsAreWrittenOnWorkdaysAndOnTheLastDayOfAMonth) {
  // March 2024 ended on a Sunday, the month before on a Thursday.
  const auto days = booking_days(2024y / 2, 2);
  EXPECT_EQ(days.size(), 21U + 22U);
  EXPECT_EQ(days.front(), Day{2024y / 2 / 1});
  EXPECT_EQ(days[20], Day{2024y / 2 / 29});
  EXPECT_EQ(days[21], Day{2024y / 3 / 1});
  EXPECT_EQ(days[22], Day{2024y / 3 / 4}) << "no weekend";
  EXPECT_EQ(days[41], Day{2024y / 3 / 29});
  EXPECT_EQ(days.back(), Day{2024y / 3 / 31}) << "a Sunday, but the last day";
}

TEST(Calendar, TheLastDayOfAMonthKnowsLeapYears) {
  EXPECT_EQ(last_day(2024y / 2), Day{2024y / 2 / 29});
  EXPECT_EQ(last_day(2023y / 2), Day{2023y / 2 / 28});
  EXPECT_EQ(last_day(2023y / 12), Day{2023y / 12 / 31});
}

TEST(Calendar, DatesAreWrittenWithEveryPlace) {
  EXPECT_EQ(timestamp(Day{2024y / 2 / 9}), "2024-02-09 00:00:00");
  EXPECT_EQ(timestamp(Day{2024y / 12 / 31}, (23 * 60 + 5) * 60 + 9), "2024-12-31 23:05:09");
  EXPECT_EQ(short_month(Day{2024y / 2 / 9}), "2402");
  EXPECT_EQ(short_month(Day{2000y / 11 / 30}), "0011");
}

}  // namespace
