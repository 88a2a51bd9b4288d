#include "bench/limits.h"

#include <gtest/gtest.h>

namespace tallyra::bench {
namespace {

Scenario small_close() {
  Scenario scenario;
  scenario.work = "month close";
  scenario.size = "5 x 200 x 5,000";
  return scenario;
}

Series series_of(const std::vector<double>& seconds, double megabytes) {
  Series series;
  for (const double each : seconds) series.add({each, megabytes, 0});
  return series;
}

// A component of one second that needs 9 MB, against replays through ODBC that take so long.
Comparison against_odbc(const std::vector<double>& seconds, double megabytes = 8) {
  Comparison result;
  result.component = series_of({1, 1, 1}, 9);
  result.replays[Against::odbc] = series_of(seconds, megabytes);
  return result;
}

// A component of one second against a prepared replay that takes so long.
Comparison against_prepared(double seconds) {
  Comparison result;
  result.component = series_of({1, 1, 1}, 9);
  result.replays[Against::prepared] = series_of({seconds, seconds, seconds}, 8);
  return result;
}

// Work of which more is wanted than is there.
Scenario small_approval() {
  Scenario scenario;
  scenario.work = "approval";
  scenario.size = "50 lines over 5,000";
  return scenario;
}

double limit_to_odbc(const Scenario& scenario, Hold hold) {
  const Limit* const limit = limit_of(scenario.work, scenario.size, Against::odbc);
  return limit ? value_of(*limit, hold) : 0;
}

TEST(Limits, AreKeptAtTheLimitAndBrokenAboveIt) {
  const double limit = limit_to_odbc(small_close(), Hold::now);
  ASSERT_GT(limit, 0);
  const double at = 1 / limit * 1.0001;
  const double above = 1 / limit * 0.98;
  EXPECT_TRUE(broken_limits(small_close(), against_odbc({at, at, at}), Hold::now).empty());
  EXPECT_EQ(broken_limits(small_close(), against_odbc({above, above, above}), Hold::now).size(), 1U);
}

TEST(Limits, AreNotBrokenByMediansAloneNorByTheShortestRunsAlone) {
  const double far_above = 1 / limit_to_odbc(small_close(), Hold::now) / 2;
  // The replay's: shortest, median, longest.
  EXPECT_TRUE(broken_limits(small_close(), against_odbc({far_above, 2, 2}), Hold::now).empty());
  Comparison disturbed = against_odbc({2, 2, 2});
  disturbed.component = series_of({1, 9, 9}, 9);
  EXPECT_TRUE(broken_limits(small_close(), disturbed, Hold::now).empty());
}

TEST(Limits, TellWhatIsBroken) {
  EXPECT_EQ(broken_limits(small_close(), against_odbc({0.1, 0.1, 0.1}), Hold::goal),
            std::vector<std::string>{"ratio to the replay through ODBC: 10.00, the limit is 0.80"});
}

TEST(Limits, HoldTheGoalsOnlyWhenAsked) {
  const Limit* const limit = limit_of("approval", "50 lines over 5,000", Against::prepared);
  ASSERT_NE(limit, nullptr);
  ASSERT_LT(limit->goal, limit->now);
  const double between = 2 / (limit->goal + limit->now);
  EXPECT_TRUE(broken_limits(small_approval(), against_prepared(between), Hold::now).empty());
  EXPECT_FALSE(broken_limits(small_approval(), against_prepared(between), Hold::goal).empty());
}

TEST(Limits, HoldThePreparedReplayToo) {
  Comparison result = against_odbc({2});
  result.replays[Against::prepared] = series_of({0.1}, 8);
  EXPECT_EQ(broken_limits(small_close(), result, Hold::now).size(), 1U);
}

TEST(Limits, OfMemoryAreFourMegabytesAboveTheReplayWhateverTheWork) {
  Scenario other;
  other.work = "without limits of its own";
  EXPECT_TRUE(broken_limits(other, against_odbc({0.01}, 5), Hold::now).empty());
  EXPECT_EQ(broken_limits(other, against_odbc({0.01}, 4.9), Hold::now),
            std::vector<std::string>{"peak memory above the replay's, in MB: 4.10, the limit is 4.00"});
}

TEST(Limits, OfGrowthLookAtWhatTheReplayDoesNotShare) {
  EXPECT_TRUE(broken_limits(Growth{"parts", "", 3.04, 2.0, 3.0}).empty());
  EXPECT_TRUE(broken_limits(Growth{"parts", "", 2.0, 1.0, 3.0}).empty());
  EXPECT_EQ(broken_limits(Growth{"parts", "", 3.06, 4.0, 3.0}),
            std::vector<std::string>{"growth above the prepared replay's: 0.06, the limit is 0.05"});
}

TEST(Limits, OfMemoryOverRecordCallsLeaveRoomForNoLeakPerCall) {
  EXPECT_TRUE(broken_limits(std::uint64_t{256}).empty());
  EXPECT_EQ(broken_limits(std::uint64_t{257}).size(), 1U);
}

}  // namespace
}  // namespace tallyra::bench
