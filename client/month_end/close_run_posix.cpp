#include <atomic>

#include "automation/error.h"
#include "automation/yield.h"
#include "client/month_end/close_run.h"
#include "client/month_end/interruption.h"
#include "client/month_end/run_watch.h"
#include "client/verbs/context.h"

// The class lives in this process and yields after each line that it has written: there its lines are
// counted, and there it is ended. An error that leaves the handler is one of the run, after which the class
// cleans up by itself.
namespace tallyra::client {
namespace {

constexpr std::int32_t user_interrupt = 18;
constexpr int ending_interruption = 2;

}  // namespace

Outcome run_close(const CloseOrder& order, const Console& console) {
  std::atomic<std::size_t> lines{0};
  const Interruptions interruptions;
  const RunWatch watch({.plan = order.plan,
                        .day = day_text(order.date),
                        .show_progress = order.show_progress,
                        .make_counter = [&] { return [&] { return lines.load(); }; },
                        .would_leave = "deletes what it has written"},
                       console);
  const automation::ScopedYield each_line([&] {
    ++lines;
    if (Interruptions::count() >= ending_interruption)
      throw automation::Error(user_interrupt, "The close was interrupted");
  });
  return run_call(close_call(order), order.session);
}

}  // namespace tallyra::client
