#include "bench/measured_run.h"

#include <gtest/gtest.h>

#include <chrono>
#include <stdexcept>
#include <thread>

namespace tallyra::bench {
namespace {

constexpr std::size_t megabyte = 1 << 20;

std::uint64_t growth_by(std::size_t bytes) {
  const std::uint64_t before = peak_kilobytes();
  const std::vector<char> held(bytes, 'x');
  return held.back() == 'x' ? peak_kilobytes() - before : 0;
}

TEST(MeasuredRun, ReportsWhatTheWorkHasCounted) {
  EXPECT_EQ(measured_run([] { return 42; }).count, 42U);
}

TEST(MeasuredRun, SeesTheMemoryThatTheWorkTakes) {
  EXPECT_GE(measured_run([] { return growth_by(64 * megabyte); }).count, 60'000U);
  EXPECT_LT(measured_run([] { return growth_by(100); }).count, 4'000U);
  const auto peak_of = [](std::size_t bytes) {
    return measured_run([=] { return growth_by(bytes); }).peak_megabytes;
  };
  EXPECT_GT(peak_of(64 * megabyte), peak_of(100) + 60);
}

TEST(MeasuredRun, TakesWaitingForTimeThatPassesButNotForTheProcessors) {
  const auto wait = []() -> std::uint64_t {
    std::this_thread::sleep_for(std::chrono::milliseconds(200));
    return 0;
  };
  EXPECT_GE(measured_run(wait, Time::passed).seconds, 0.2);
  EXPECT_LT(measured_run(wait, Time::processor).seconds, 0.2);
}

TEST(MeasuredRun, ThrowsWhatTheWorkThrew) {
  const auto failing = []() -> std::uint64_t { throw std::runtime_error("no such table"); };
  try {
    measured_run(failing);
    ADD_FAILURE() << "nothing thrown";
  } catch (const std::runtime_error& error) {
    EXPECT_STREQ(error.what(), "no such table");
  }
}

TEST(Median, IsTheMiddleOne) {
  EXPECT_EQ(median({3, 100, 1}), 3);
  EXPECT_EQ(median({7}), 7);
}

}  // namespace
}  // namespace tallyra::bench
