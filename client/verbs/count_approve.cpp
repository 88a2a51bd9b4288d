#include <algorithm>

#include "automation/clock.h"
#include "client/database/journal.h"
#include "client/month_end/guard.h"
#include "client/month_end/lock.h"
#include "client/posting_check.h"
#include "client/refusal.h"
#include "client/stocktaking/approval.h"
#include "client/stocktaking/entry.h"
#include "client/stocktaking/force.h"
#include "client/stocktaking/stocktaking.h"
#include "client/verbs/all_verbs.h"
#include "client/verbs/context.h"

// The approval of a stocktaking, with what the class leaves to its caller.
namespace tallyra::client {
namespace {

constexpr std::string_view again = "again";
constexpr std::string_view closed = "closed-period";
constexpr std::string_view future = "future";
constexpr Option options[] = {
    {"--force", "NAME",
     "again: post once more what is approved; closed-period: post into a closed month; future: post on a day "
     "to come"},
    {"--break-lock", "", "take the lock of a process on another host, which has ended for certain"},
};
constexpr std::string_view examples[] = {"count approve 30-20240215 --db stock.db --user ANNA"};

bool is_to_come(const Stocktaking& stocktaking) {
  return stocktaking.day.serial > automation::today().serial;
}

void require_approvable(const VerbContext& context, const Reader& reader, const Stocktaking& stocktaking) {
  if ((stocktaking.approved || stocktaking.postings != 0) && !is_forced(context, again))
    throw Refusal(stocktaking.number +
                  " is approved already. A second approval holds the count against what the first one has "
                  "posted; 'count undo' takes that back, --force again posts once more all the same");
  if (const auto date = close_over(reader, stocktaking); date && !is_forced(context, closed))
    throw Refusal(stocktaking.number + " is of " + day_text(stocktaking.day) + ", which the close of " +
                  day_text(*date) +
                  " covers: what is posted there comes into no close any more. Reopen that close first; "
                  "--force closed-period posts all the same");
  if (is_to_come(stocktaking) && !is_forced(context, future))
    throw Refusal(stocktaking.number + " is of " + day_text(stocktaking.day) +
                  ", which lies in the future: no close before that day would see what is posted. "
                  "--force future posts all the same");
  if (!stocktaking.department_known)
    throw Refusal("there is no department " + stocktaking.department + ", in which " + stocktaking.number +
                  " was counted: its approval would post nothing");
}

std::string question(const Stocktaking& stocktaking, const std::vector<CountedPart>& parts) {
  const auto differing = std::ranges::count_if(parts, &CountedPart::differs);
  const auto unknown = std::ranges::count_if(parts, [](const CountedPart& part) { return !part.counted; });
  std::string text = "Approve " + stocktaking.number + " of department " + stocktaking.department + " on " +
                     day_text(stocktaking.day) + "? " + std::to_string(differing) + " of " +
                     std::to_string(parts.size()) + " parts differ and are posted";
  if (unknown != 0) text += ", " + std::to_string(unknown) + " have no counted quantity and are not";
  return text + ".";
}

Table posted_table(const std::vector<CountedPart>& parts, const std::map<std::string, double>& posted) {
  Table table{"posted", {}, {{"part"}}, {}};
  for (const char* name : {"book", "counted", "posted"}) table.columns.push_back(number_column(name));
  for (const CountedPart& part : parts) {
    const auto found = posted.find(part.part);
    auto& row = table.rows.emplace_back();
    row = {part.part, part.book, {}, {}};
    if (part.counted) row[2] = *part.counted;
    if (found != posted.end()) row[3] = found->second;
  }
  return table;
}

// What stands under no number was not there before: only this approval can have written it.
ExitStatus take_back(VerbContext& context, const std::string& number, const std::string& complaint) {
  const StatusChange undone = change_status(context, number, false);
  journal(context, {"count approve", number, "failed", "posted without a number"});
  throw Refusal(complaint +
                (undone.stored && posting_complaint(context.session()).empty()
                     ? ". The approval was taken back"
                     : ". The approval could not be taken back: " + failure_text(undone.outcome)));
}

// What --force was needed for, as the journal has it.
std::string forced_text(const Reader& reader, const Stocktaking& stocktaking) {
  std::string text;
  if (stocktaking.approved || stocktaking.postings != 0) text.append(" ").append(again);
  if (close_over(reader, stocktaking)) text.append(" ").append(closed);
  if (is_to_come(stocktaking)) text.append(" ").append(future);
  return text.empty() ? text : "forced:" + text;
}

ExitStatus approve(VerbContext& context, const Stocktaking& stocktaking,
                   const std::vector<CountedPart>& parts) {
  const std::string forced = forced_text(context.reader(), stocktaking);
  const std::string& number = stocktaking.number;
  const StatusChange change = change_status(context, number, true);
  if (!change.stored) {
    journal(context, {"count approve", number, "failed", failure_text(change.outcome)});
    throw Refusal(number + " is not approved, nothing was stored: " + failure_text(change.outcome));
  }
  if (const std::string complaint = posting_complaint(context.session()); !complaint.empty())
    return take_back(context, number, complaint);
  const auto posted = posted_parts(context.reader(), number);
  context.print(posted_table(parts, posted));
  context.tell("Approved " + number + "; read back, it is stored, with " + std::to_string(posted.size()) +
               (posted.size() == 1 ? " part posted." : " parts posted."));
  journal(context, {"count approve", number, "done", forced});
  return exit_done;
}

ExitStatus run(VerbContext& context) {
  require_known_forces(context, {again, closed, future});
  const std::string& number = context.argument(0);
  require_check_number(number);
  require_approvable(context, context.reader(), stocktaking_of(context.reader(), number));
  require_no_unfinished_close(context.reader(), context.has("--break-lock"));
  if (const std::string complaint = posting_complaint(context.session()); !complaint.empty())
    throw Refusal("nothing was approved: " + complaint);
  const auto asked = counted_parts(context.reader(), stocktaking_of(context.reader(), number));
  if (!context.confirm(question(stocktaking_of(context.reader(), number), asked)))
    throw Refusal("nothing was done");

  const CloseLock lock(context, "count approve " + number);
  require_no_leftovers(context.reader());
  const Stocktaking stocktaking = stocktaking_of(context.reader(), number);
  require_approvable(context, context.reader(), stocktaking);
  const auto parts = counted_parts(context.reader(), stocktaking);
  if (std::ranges::any_of(parts, &CountedPart::differs)) require_posting_number(context);
  return approve(context, stocktaking, parts);
}

}  // namespace

const Verb count_approve_verb{
    .name = "count approve",
    .arguments = "CHECKNO",
    .summary = "approve a stocktaking, and read back that it is stored",
    .help =
        "Posts the differences of a stocktaking and says whether that was stored: it reads the header back,\n"
        "because the class reports an error of the transaction after a success as well. It refuses while a\n"
        "close is at work or has left something, for a stocktaking that is approved or lies in a closed\n"
        "month, and when no number is issued for the posting.",
    .options = options,
    .examples = examples,
    .least_arguments = 1,
    .most_arguments = 1,
    .run = run,
};

}  // namespace tallyra::client
