#include <algorithm>

#include "automation/clock.h"
#include "client/database/journal.h"
#include "client/month_end/guard.h"
#include "client/month_end/lock.h"
#include "client/month_end/period.h"
#include "client/month_end/summary.h"
#include "client/refusal.h"
#include "client/verbs/all_verbs.h"
#include "client/verbs/context.h"

// The approval of a month close.
namespace tallyra::client {
namespace {

constexpr Option options[] = {
    {"--break-lock", "", "take the lock of a process on another host, which has ended for certain"},
};
constexpr std::string_view examples[] = {"approve 2024/01/31 --db stock.db --user ANNA"};

// The class approves every earlier record with it.
std::string earlier_unapproved(const std::vector<CloseRecord>& records, automation::Date date) {
  std::string text;
  for (const CloseRecord& record : records)
    if (record.date.serial < date.serial && !record.approved)
      text += (text.empty() ? "" : ", ") + day_text(record.date);
  return text;
}

void require_close(const std::vector<CloseRecord>& records, automation::Date date) {
  if (find_record(records, date)) return;
  throw Refusal(
      "there is no close of " + day_text(date) +
      (records.empty() ? ", and no other" : "; the latest is that of " + day_text(records.back().date)) +
      ". Nothing was approved");
}

// The record and all its documents.
bool is_approved(const Reader& reader, automation::Date date) {
  const auto records = close_records(reader);
  const CloseRecord* record = find_record(records, date);
  return record && record->approved &&
         std::ranges::all_of(close_documents(reader, date), &CloseDocument::approved);
}

// Another approval would put its own user and time over those of the first.
void require_unapproved(const Reader& reader, automation::Date date) {
  if (is_approved(reader, date))
    throw Refusal("the close of " + day_text(date) + " is approved already. Nothing was changed");
}

Call approval(const VerbContext& context, automation::Date date) {
  Call call{"Tallyra.CStockClose", "Update", {day_text(date), "APPROVED"}, 1, {}};
  call.fields = {
      {"STATUS", "APPROVED"}, {"STATUSSN", 1}, {"STATUSBY", context.user()}, {"STATUSDT", automation::now()}};
  return call;
}

ExitStatus run(VerbContext& context) {
  const automation::Date date = date_of(context.argument(0));
  require_close(close_records(context.reader()), date);
  require_unapproved(context.reader(), date);
  require_no_unfinished_close(context.reader(), context.has("--break-lock"));
  const CloseLock lock(context, "approve " + day_text(date));
  require_no_leftovers(context.reader());
  const auto records = close_records(context.reader());
  require_close(records, date);
  require_unapproved(context.reader(), date);
  const std::string earlier = earlier_unapproved(records, date);
  if (!earlier.empty() && !context.confirm("Approving " + day_text(date) +
                                           " approves the earlier closes of " + earlier + " as well. Go on?"))
    throw Refusal("nothing was done");

  const Outcome outcome = context.call(approval(context, date));
  if (!is_approved(context.reader(), date)) {
    journal(context, {"approve", day_text(date), "failed", failure_text(outcome)});
    throw Refusal(day_text(date) + " is not approved: " + failure_text(outcome));
  }
  journal(context, {"approve", day_text(date), "done", earlier.empty() ? "" : "with " + earlier});
  context.tell("Approved the close of " + day_text(date) +
               (earlier.empty() ? "." : ", and those of " + earlier + "."));
  return exit_done;
}

}  // namespace

const Verb approve_verb{
    .name = "approve",
    .arguments = "DATE",
    .summary = "approve a close, so that later ones build on it",
    .help =
        "Approves the close of DATE and its documents. A date without a close is refused. Earlier closes "
        "that are\n"
        "not approved are approved with it, after a question. One that is approved already is refused.",
    .options = options,
    .examples = examples,
    .least_arguments = 1,
    .most_arguments = 1,
    .run = run,
};

}  // namespace tallyra::client
