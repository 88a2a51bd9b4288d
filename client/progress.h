#pragma once

#include <chrono>
#include <cstddef>
#include <iosfwd>
#include <string>

#include "client/background_thread.h"

namespace tallyra::client {

struct CloseProgressSettings {
  std::string connection_string;
  std::string close_date;
  std::chrono::milliseconds interval{};
  std::size_t width = 80;  // columns of the terminal
};

// While it lives, a thread of its own counts over a connection of its own, every `interval`, how many
// department documents of a month close are committed, and redraws one line on the stream:
//
//   Closing 2024/01/31: 12 of 50 departments
//
// Whatever goes wrong while counting is tried again at the next turn and told to nobody: the close itself
// is never disturbed. The destructor waits for a count under way and clears the line. Nobody else may write
// to the stream meanwhile.
class CloseProgress {
 public:
  CloseProgress(CloseProgressSettings settings, std::ostream& stream);
  CloseProgress(const CloseProgress&) = delete;
  CloseProgress& operator=(const CloseProgress&) = delete;

 private:
  void run(BackgroundThread& itself);

  CloseProgressSettings settings_;
  std::ostream& stream_;
  BackgroundThread thread_;  // last: it uses all the others, and its destructor ends it first
};

}  // namespace tallyra::client
