#pragma once

#include <span>
#include <string_view>

namespace tallyra::client {

// What the program ends with. A script depends on the numbers: none ever changes its meaning.
enum ExitStatus : int {
  exit_done = 0,
  exit_failed = 1,       // refused, failed, or errors were found
  exit_wrong_usage = 2,  // nothing was tried
  exit_locked = 4,       // another one is at work
  exit_interrupted = 130,
};

struct ExitMeaning {
  ExitStatus status;
  std::string_view meaning;
};

// Every status with its meaning, for help and manual.
std::span<const ExitMeaning> exit_meanings();

}  // namespace tallyra::client
