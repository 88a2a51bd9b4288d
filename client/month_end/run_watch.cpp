#include "client/month_end/run_watch.h"

#include <algorithm>
#include <exception>
#include <optional>
#include <ostream>

#include "automation/apartment.h"
#include "client/month_end/interruption.h"
#include "client/output/status_line.h"

namespace tallyra::client {
namespace {

using std::chrono::seconds;
using std::chrono::steady_clock;

std::string clock_text(seconds time) {
  constexpr long minute = 60;
  const long all = static_cast<long>(time.count());
  const std::string rest = std::to_string(all % minute);
  return std::to_string(all / minute) + (rest.size() == 1 ? ":0" : ":") + rest;
}

std::size_t departments_done(const ClosePlan& plan, std::size_t lines) {
  std::size_t done = 0;
  for (std::size_t written = 0; done < plan.departments.size(); ++done) {
    written += plan.departments[done].lines;
    if (written > lines) break;
  }
  return done;
}

}  // namespace

std::string progress_text(const ClosePlan& plan, const std::string& day, std::size_t lines, seconds elapsed) {
  constexpr std::size_t whole = 100;
  const std::size_t all = std::max<std::size_t>(plan.lines(), 1);
  const std::size_t written = std::min(lines, all);
  const std::size_t departments = departments_done(plan, written);
  std::string text = "Closing " + day + ": " + std::to_string(written * whole / all) + " %, ";
  text +=
      departments == plan.departments.size()
          ? "the company"
          : std::to_string(departments) + " of " + std::to_string(plan.departments.size()) + " departments";
  text += ", " + std::to_string(written) + " of " + std::to_string(all) + " lines, " + clock_text(elapsed);
  if (written == 0 || elapsed < seconds(1)) return text;
  const auto left =
      elapsed.count() * static_cast<seconds::rep>(all - written) / static_cast<seconds::rep>(written);
  return text + ", about " + clock_text(seconds(left)) + " left";
}

RunWatch::RunWatch(Settings settings, const Console& console)
    : settings_(std::move(settings)),
      console_(console),
      thread_([this](BackgroundThread& itself) { run(itself); }) {}

// Until the next line of progress is due, or somebody interrupts who has not been answered.
bool RunWatch::wait_for_turn(BackgroundThread& itself, bool answered) {
  constexpr std::chrono::milliseconds look_at_signals{20};
  const auto due = steady_clock::now() + console_.progress_interval;
  do {
    if (!itself.sleep(std::min(look_at_signals, console_.progress_interval))) return false;
  } while (steady_clock::now() < due && (answered || Interruptions::count() == 0));
  return true;
}

void RunWatch::run(BackgroundThread& itself) try {
  const automation::Apartment apartment;
  const auto begin = steady_clock::now();
  StatusLine line(console_.error, console_.error_width);
  LineCounter counter;
  bool told = false;
  // The first turn comes after a wait: a short close shows nothing.
  while (wait_for_turn(itself, told)) {
    if (!told && Interruptions::count() > 0) {
      line.clear();
      console_.error << "The close goes on. Interrupted once more it ends after the row that it is at, and "
                     << settings_.would_leave << ".\n"
                     << std::flush;
      told = true;
    }
    if (!settings_.show_progress) continue;
    try {
      if (!counter) counter = settings_.make_counter();
      const auto elapsed = std::chrono::duration_cast<seconds>(steady_clock::now() - begin);
      line.show(progress_text(settings_.plan, settings_.day, counter(), elapsed));
    } catch (const std::exception&) {
      counter = nullptr;
    }
  }
  line.clear();
  if (!told && Interruptions::count() == 1) console_.error << "Interrupted when the close was done.\n";
} catch (const std::exception&) {
  // Without an apartment or memory there is no progress to show; the close goes on.
}

}  // namespace tallyra::client
