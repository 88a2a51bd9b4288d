#include "client/raw_call.h"

#include <optional>
#include <ostream>

#include "automation/apartment.h"
#include "automation/error.h"
#include "automation/folded_name.h"
#include "client/call_guard.h"
#include "client/call_run.h"
#include "client/command_line.h"
#include "client/failure.h"
#include "client/progress.h"
#include "client/report_json.h"
#include "client/report_text.h"
#include "client/setup/right_advice.h"
#include "client/value_text.h"
#include "client/wait_notice.h"

namespace tallyra::client {
namespace {

bool is_month_close(const Call& call) {
  return automation::equals_folded(call.prog_id, "Tallyra.CStockClose") &&
         automation::equals_folded(call.member, "Insert") && !call.arguments.empty();
}

Outcome run_with_progress(const CallRequest& request, const Console& console) {
  std::optional<CloseProgress> progress;
  std::optional<WaitNotice> notice;
  if (!is_month_close(request.call)) notice.emplace(console);
  if (is_month_close(request.call) && request.progress.value_or(console.error_is_terminal)) {
    CloseProgressSettings settings;
    settings.connection_string = request.session.connection_string.value_or("");
    settings.close_date = shown_text(request.call.arguments.front());
    settings.interval = console.progress_interval;
    settings.width = console.error_width;
    progress.emplace(std::move(settings), console.error);
  }
  return run_call(request.call, request.session);
}

ExitStatus carry_out(const TextRequest& request, const Console& console) {
  console.out << request.text;
  return exit_done;
}

ExitStatus carry_out(const CallRequest& request, const Console& console) {
  const automation::Apartment apartment;
  CallGuard guard(request.session);
  guard.before(request.call);
  const Outcome outcome = run_with_progress(request, console);
  const auto complaints = guard.after(request.call, outcome);
  console.out << (request.json ? report_json(outcome, complaints) : report_text(outcome));
  if (outcome.raised) tell_failure(*outcome.raised, console);
  if (const auto advice = right_advice(request.call, outcome, request.session))
    console.error << "tallyra-client: " << *advice << "\n";
  for (const std::string& complaint : complaints) console.error << "tallyra-client: " << complaint << "\n";
  return outcome.succeeded() && complaints.empty() ? exit_done : exit_failed;
}

}  // namespace

ExitStatus run_raw_call(const std::vector<std::string>& words, const Console& console,
                        const Environment& environment) {
  return std::visit([&](const auto& request) { return carry_out(request, console); },
                    parse_command_line(words, environment));
}

}  // namespace tallyra::client
