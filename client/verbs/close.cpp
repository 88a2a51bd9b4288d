#include <algorithm>
#include <chrono>
#include <cmath>
#include <ostream>

#include "client/database/journal.h"
#include "client/month_end/backup.h"
#include "client/month_end/check.h"
#include "client/month_end/close_run.h"
#include "client/month_end/findings/all_findings.h"
#include "client/month_end/interruption.h"
#include "client/month_end/summary.h"
#include "client/refusal.h"
#include "client/setup/right_advice.h"
#include "client/stocktaking/force.h"
#include "client/usage_error.h"
#include "client/verbs/all_verbs.h"
#include "client/verbs/context.h"

// The month close with everything around it: check, question, lock, copy, run, summary.
namespace tallyra::client {
namespace {

constexpr Option options[] = {
    {"--force", "NAME", "close although the check has found that error; several with commas between"},
    {"--backup", "", "copy the database beside itself first, and check the copy"},
    {"--break-lock", "", "take the lock of a process on another host, which has ended for certain"},
    {"--progress", "", "show how it goes also where the error output is no terminal"},
    {"--no-progress", "", "show it on a terminal neither"},
};
constexpr std::string_view examples[] = {
    "close 2024/01/31 --db stock.db --user ANNA",
    "close 2024/01/31 --db stock.db --user ANNA --yes --backup",
    "close 2024/03/31 --db stock.db --user ANNA --force month-left-out",
};

std::string joined(const std::vector<std::string>& names) {
  std::string text;
  for (const std::string& name : names) text += (text.empty() ? "" : ", ") + name;
  return text;
}

std::vector<std::string> forced_names(const VerbContext& context) {
  std::vector<std::string_view> known;
  for (const Finding* finding : findings())
    // Whoever is at work keeps his lock, whatever is forced.
    if (finding->severity == Severity::error && finding != &another_closer) known.push_back(finding->name);
  require_known_forces(context, known);
  std::vector<std::string> forced = context.words().values("--force");
  // The lock itself still refuses all but that of another host.
  if (context.has("--break-lock")) forced.emplace_back("another-closer");
  return forced;
}

// Whether the record is there decides: the answer to the last commit may have been lost.
bool is_closed(const Reader& reader, automation::Date date) {
  return find_record(close_records(reader), date) != nullptr;
}

// The class would refuse it, and the record of the earlier close look like that of this one.
void require_not_closed(const Reader& reader, automation::Date date) {
  if (is_closed(reader, date))
    throw Refusal(day_text(date) + " is closed already, and no date is closed twice: 'reopen' it first");
}

std::string way_out(VerbContext& context, bool locked, bool closed) {
  const auto holder = locked ? lock_holder(context.reader()) : std::nullopt;
  if (locked) return holder ? ". " + holder->refusal() : ", who has ended meanwhile";
  if (closed) return ". No date is closed twice: 'reopen' it first";
  return ". Mend that first; --force with these names closes all the same";
}

void refuse(VerbContext& context, automation::Date date, const std::vector<std::string>& errors) {
  if (context.reader().has_table("TALLYRAJOURNAL"))
    journal(context, {"close", day_text(date), "refused", joined(errors)});
  const bool locked = std::ranges::find(errors, "another-closer") != errors.end();
  throw Refusal(day_text(date) + " is not closed, because of: " + joined(errors) +
                    way_out(context, locked, is_closed(context.reader(), date)),
                locked ? exit_locked : exit_failed);
}

CheckResult checked(VerbContext& context, automation::Date date, const std::vector<std::string>& forced) {
  CheckResult result = check_close(context.reader(), date);
  context.console().error << check_text(result) << std::flush;
  if (const auto errors = result.errors_beside(forced); !errors.empty()) refuse(context, date, errors);
  require_not_closed(context.reader(), date);
  return result;
}

std::string question(const CheckResult& result, automation::Date date) {
  std::string text = "Close " + day_text(date) + "? " + std::to_string(result.plan.departments.size()) +
                     " departments and the company come to " + std::to_string(result.plan.lines()) +
                     " lines.";
  if (!result.left.empty())
    text += " What an unfinished close has left is deleted: " + leftovers_text(result.left) + ".";
  return text;
}

// What another closer may have done between the check and the lock.
void check_dates_again(VerbContext& context, automation::Date date, const std::vector<std::string>& forced) {
  const CloseCase close = close_case(context.reader(), date);
  std::vector<std::string> errors;
  for (const std::string_view name : {"before-a-close", "month-left-out", "previous-unapproved"})
    for (const Finding* finding : findings())
      if (finding->name == name && finding->look(close).count != 0 &&
          std::ranges::find(forced, name) == forced.end())
        errors.emplace_back(name);
  if (!errors.empty()) refuse(context, date, errors);
  require_not_closed(context.reader(), date);
}

void tell_what_is_left(const VerbContext& context, const Reader& reader, automation::Date date) {
  const auto left = leftovers(reader);
  if (left.empty())
    context.warn("nothing of it is left in the database");
  else
    context.warn("left in the database: " + leftovers_text(left) + ". To mend it close " + day_text(date) +
                 " again, or delete that with 'reopen'; approve no stocktaking before");
}

ExitStatus tell_failure_of(VerbContext& context, const CloseOrder& order, const Outcome& outcome) {
  const automation::Date date = order.date;
  const bool interrupted = Interruptions::count() >= 2;
  const std::string reason = interrupted ? "interrupted" : failure_text(outcome);
  context.warn(day_text(date) + " is not closed: " + reason);
  if (const auto advice = right_advice(close_call(order), outcome, order.session)) context.warn(*advice);
  tell_what_is_left(context, context.reader(), date);
  journal(context, {"close", day_text(date), interrupted ? "interrupted" : "failed", reason});
  return interrupted ? exit_interrupted : exit_failed;
}

ExitStatus run(VerbContext& context) {
  const automation::Date date = date_of(context.argument(0));
  if (context.has("--progress") && context.has("--no-progress"))
    throw UsageError("--progress and --no-progress exclude each other");
  const auto forced = forced_names(context);
  const CheckResult result = checked(context, date, forced);
  if (!context.confirm(question(result, date))) throw Refusal("nothing was done");

  const CloseLock lock(context, "close " + day_text(date));
  check_dates_again(context, date, forced);
  if (context.has("--backup")) {
    const Backup backup = back_up(context.reader(), "close");
    if (backup.removed != 0)
      context.tell("Removed " + std::to_string(backup.removed) + " files of a copy that was not finished.");
    context.tell("Copied to " + backup.file + ": " + std::to_string(backup.tables) + " tables with " +
                 std::to_string(backup.rows) + " rows, equal to the database.");
  }
  const auto begin = std::chrono::steady_clock::now();
  const bool show =
      context.has("--progress") || (context.console().error_is_terminal && !context.has("--no-progress"));
  const CloseOrder order{context.session(), date, result.plan, show && !context.quiet()};
  const Outcome outcome = run_close(order, context.console());
  if (!is_closed(context.reader(), date)) return tell_failure_of(context, order, outcome);

  context.print(summary_table(context.reader(), date));
  const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - begin;
  const auto tenths = std::to_string(std::lround(elapsed.count() * 10));
  context.tell("Closed " + day_text(date) + " in " +
               (tenths.size() > 1 ? tenths.substr(0, tenths.size() - 1) : "0") + "." + tenths.back() +
               " seconds. Look at it with 'verify' and 'report', then 'approve' it.");
  const auto overridden = result.errors_beside({});
  journal(context,
          {"close", day_text(date), "done", overridden.empty() ? "" : "forced: " + joined(overridden)});
  return exit_done;
}

}  // namespace

const Verb close_verb{
    .name = "close",
    .arguments = "DATE",
    .summary = "close a month: check, run, summary",
    .help =
        "Checks the close of DATE as 'check' does, asks, and runs it: a document for each department and one "
        "for\n"
        "the company. With an error it does not, unless --force names it. One runs at a time, held by a lock "
        "that\n"
        "every program of this kind minds; the lock of a process of this host that has ended is taken over.\n"
        "The first Ctrl-C tells what a second one would leave, and the run goes on; the second ends it.",
    .options = options,
    .examples = examples,
    .least_arguments = 1,
    .most_arguments = 1,
    .run = run,
};

}  // namespace tallyra::client
