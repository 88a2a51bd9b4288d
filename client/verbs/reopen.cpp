#include <algorithm>

#include "client/database/journal.h"
#include "client/month_end/lock.h"
#include "client/month_end/period.h"
#include "client/month_end/summary.h"
#include "client/refusal.h"
#include "client/stocktaking/force.h"
#include "client/verbs/all_verbs.h"
#include "client/verbs/context.h"

// Takes a month close back.
namespace tallyra::client {
namespace {

constexpr std::string_view not_latest = "not-latest";
constexpr Option options[] = {
    {"--force", "NAME", "not-latest: take a close back though there are later ones, which build on it"},
    {"--break-lock", "", "take the lock of a process on another host, which has ended for certain"},
};
constexpr std::string_view examples[] = {"reopen 2024/02/29 --db stock.db --user ANNA"};

bool forced(const VerbContext& context) {
  require_known_forces(context, {not_latest});
  return is_forced(context, not_latest);
}

void require_latest(const std::vector<CloseRecord>& records, automation::Date date) {
  if (records.empty() || records.back().date.serial <= date.serial) return;
  throw Refusal(
      "there are later closes, up to that of " + day_text(records.back().date) +
      ", whose stock builds on this one. Reopen them first, the latest first; --force not-latest takes "
      "this one back all the same");
}

bool is_there(const Reader& reader, automation::Date date) {
  return find_record(close_records(reader), date) || !close_documents(reader, date).empty();
}

void require_close(const Reader& reader, automation::Date date) {
  if (!is_there(reader, date))
    throw Refusal("there is no close of " + day_text(date) + ". Nothing was deleted");
}

std::string question(const Reader& reader, automation::Date date) {
  const auto records = close_records(reader);
  const CloseRecord* record = find_record(records, date);
  const char* state = !record ? "unfinished" : record->approved ? "approved" : "unapproved";
  return std::string("Delete the ") + state + " close of " + day_text(date) + " with its " +
         std::to_string(close_documents(reader, date).size()) + " documents?";
}

// What goes with a close, or with what an unfinished one has left.
std::string parts_text(const Reader& reader, automation::Date date) {
  const std::size_t documents = close_documents(reader, date).size();
  const std::string documents_text =
      std::to_string(documents) + (documents == 1 ? " document" : " documents");
  if (!find_record(close_records(reader), date))
    return documents_text + " that an unfinished close has left " +
           (documents == 1 ? "is deleted" : "are deleted") + "; it had no record";
  if (documents == 0) return "its record is deleted; it had no documents";
  return "its record and its " + documents_text + " are deleted";
}

ExitStatus run(VerbContext& context) {
  const automation::Date date = date_of(context.argument(0));
  const bool force = forced(context);
  require_close(context.reader(), date);
  if (!force) require_latest(close_records(context.reader()), date);
  if (!context.confirm(question(context.reader(), date))) throw Refusal("nothing was done");
  const CloseLock lock(context, "reopen " + day_text(date));
  require_close(context.reader(), date);
  if (!force) require_latest(close_records(context.reader()), date);

  const std::string parts = parts_text(context.reader(), date);
  const Outcome outcome = context.call({"Tallyra.CStockClose", "Delete", {day_text(date)}, {}, {}});
  if (is_there(context.reader(), date)) {
    journal(context, {"reopen", day_text(date), "failed", failure_text(outcome)});
    throw Refusal(day_text(date) + " is not reopened: " + failure_text(outcome));
  }
  journal(context, {"reopen", day_text(date), "done", (force ? "forced: not-latest; " : "") + parts});
  context.tell("Reopened " + day_text(date) + ": " + parts + ".");
  return exit_done;
}

}  // namespace

const Verb reopen_verb{
    .name = "reopen",
    .arguments = "DATE",
    .summary = "delete a close with its documents, the latest unless forced",
    .help =
        "Deletes the record and the documents of the close of DATE, approved or not, so that documents of "
        "the month\n"
        "can be entered and the month be closed again. What an unfinished close has left for DATE goes too.\n"
        "Only the latest close can be taken back, unless --force not-latest says otherwise.",
    .options = options,
    .examples = examples,
    .least_arguments = 1,
    .most_arguments = 1,
    .run = run,
};

}  // namespace tallyra::client
