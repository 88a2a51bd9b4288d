#pragma once

#include <functional>

#include "automation/date.h"

namespace tallyra::automation {

// The local date and time of day, to the second, from the system or from the clock that a test has set.
Date now();
// The same day at midnight.
Date today();

// Replaces the clock of this thread for as long as it lives; ends in the reverse order of others of its kind.
class ScopedClock {
 public:
  explicit ScopedClock(std::function<Date()> clock);
  ~ScopedClock();
  ScopedClock(const ScopedClock&) = delete;
  ScopedClock& operator=(const ScopedClock&) = delete;

 private:
  std::function<Date()> clock_;
  const std::function<Date()>* previous_;
};

}  // namespace tallyra::automation
