#pragma once

#include <chrono>
#include <cstddef>
#include <iosfwd>
#include <string>
#include <vector>

namespace tallyra::client {

// Where the client writes.
struct Console {
  std::ostream& out;
  std::ostream& error;
  bool error_is_terminal = false;
  std::size_t error_width = 80;
  // How often the progress of a long call is looked at.
  std::chrono::milliseconds progress_interval{500};
};

enum ExitStatus : int { exit_done = 0, exit_failed = 1, exit_wrong_usage = 2 };

// The whole program but for the start: reads the words, makes the call, writes the report or what was wrong.
// Nothing is thrown.
ExitStatus run_client(const std::vector<std::string>& words, const Console& console);

}  // namespace tallyra::client
