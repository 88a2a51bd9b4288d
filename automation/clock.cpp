#include "automation/clock.h"

#include <cmath>
#include <ctime>
#include <utility>

namespace tallyra::automation {
namespace {

thread_local std::function<Date()> thread_clock;

Date system_clock() {
  const std::time_t seconds = std::time(nullptr);
  std::tm local{};
#ifdef _WIN32
  localtime_s(&local, &seconds);
#else
  localtime_r(&seconds, &local);
#endif
  const CivilTime civil{local.tm_year + 1900, local.tm_mon + 1, local.tm_mday,
                        local.tm_hour,        local.tm_min,     local.tm_sec > 59 ? 59 : local.tm_sec};
  return date_from_civil(civil).value_or(Date{});
}

}  // namespace

Date now() {
  return thread_clock ? thread_clock() : system_clock();
}

Date today() {
  return {std::trunc(now().serial)};
}

ScopedClock::ScopedClock(std::function<Date()> clock)
    : previous_(std::exchange(thread_clock, std::move(clock))) {}

ScopedClock::~ScopedClock() {
  thread_clock = std::move(previous_);
}

}  // namespace tallyra::automation
