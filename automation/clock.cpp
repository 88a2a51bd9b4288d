#include "automation/clock.h"

#include <cmath>
#include <ctime>
#include <utility>

namespace tallyra::automation {
namespace {

// The clock itself lies in the ScopedClock: a thread-local with a destructor would keep the DLL loaded for as
// long as the thread lives.
thread_local const std::function<Date()>* thread_clock = nullptr;

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
  return thread_clock ? (*thread_clock)() : system_clock();
}

Date today() {
  return {std::trunc(now().serial)};
}

ScopedClock::ScopedClock(std::function<Date()> clock)
    : clock_(std::move(clock)), previous_(std::exchange(thread_clock, &clock_)) {}

ScopedClock::~ScopedClock() {
  thread_clock = previous_;
}

}  // namespace tallyra::automation
