#pragma once

#include <chrono>
#include <functional>
#include <string>

#include "client/background_thread.h"
#include "client/console.h"
#include "client/month_end/sums.h"

namespace tallyra::client {

// How many lines of a close are written. Called again and again on the thread of the watch, where the source
// has been made too; what it throws leaves the number unknown for that turn.
using LineCounter = std::function<std::size_t()>;

// What a close that has written so many lines comes to, as a person reads it: the share first, for narrow
// terminals.
std::string progress_text(const ClosePlan& plan, const std::string& day, std::size_t lines,
                          std::chrono::seconds elapsed);

// While it lives, a thread of its own redraws the progress of a close, and tells at the first interruption
// that the run goes on and what a second one would leave. Nobody else may write to the console meanwhile.
class RunWatch {
 public:
  struct Settings {
    ClosePlan plan;
    std::string day;
    bool show_progress = false;
    // Makes the counter, on the thread of the watch.
    std::function<LineCounter()> make_counter;
    // What a second interruption would leave.
    std::string would_leave;
  };

  RunWatch(Settings settings, const Console& console);
  RunWatch(const RunWatch&) = delete;
  RunWatch& operator=(const RunWatch&) = delete;

 private:
  void run(BackgroundThread& itself);
  bool wait_for_turn(BackgroundThread& itself, bool answered);

  Settings settings_;
  const Console& console_;
  BackgroundThread thread_;  // last: it uses all the others
};

}  // namespace tallyra::client
