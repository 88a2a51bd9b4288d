#include "client/database/journal.h"
#include "client/month_end/guard.h"
#include "client/month_end/lock.h"
#include "client/refusal.h"
#include "client/stocktaking/approval.h"
#include "client/stocktaking/entry.h"
#include "client/stocktaking/force.h"
#include "client/stocktaking/stocktaking.h"
#include "client/verbs/all_verbs.h"
#include "client/verbs/context.h"

// Takes the approval of a stocktaking back.
namespace tallyra::client {
namespace {

constexpr std::string_view closed = "closed-period";
constexpr Option options[] = {
    {"--force", "NAME", "closed-period: take back what a close has counted already"},
    {"--break-lock", "", "take the lock of a process on another host, which has ended for certain"},
};
constexpr std::string_view examples[] = {"count undo 30-20240215 --db stock.db --user ANNA"};

void require_undoable(const VerbContext& context, const Reader& reader, const Stocktaking& stocktaking) {
  if (!stocktaking.approved && stocktaking.postings == 0)
    throw Refusal(stocktaking.number + " is not approved: there is nothing to take back");
  if (const auto date = close_over(reader, stocktaking); date && !is_forced(context, closed))
    throw Refusal("the close of " + day_text(*date) + " has counted what " + stocktaking.number +
                  " posted. Reopen it first; --force closed-period takes the posting back all the same");
}

ExitStatus run(VerbContext& context) {
  require_known_forces(context, {closed});
  const std::string& number = context.argument(0);
  require_check_number(number);
  const Stocktaking asked = stocktaking_of(context.reader(), number);
  require_undoable(context, context.reader(), asked);
  require_no_unfinished_close(context.reader(), context.has("--break-lock"));
  if (!context.confirm("Take back the approval of " + number + " and delete its " +
                       std::to_string(asked.postings) + (asked.postings == 1 ? " posting?" : " postings?")))
    throw Refusal("nothing was done");

  const CloseLock lock(context, "count undo " + number);
  require_no_leftovers(context.reader());
  require_undoable(context, context.reader(), stocktaking_of(context.reader(), number));
  const StatusChange change = change_status(context, number, false);
  if (!change.stored || stocktaking_of(context.reader(), number).postings != 0) {
    journal(context, {"count undo", number, "failed", failure_text(change.outcome)});
    throw Refusal("the approval of " + number + " was not taken back: " + failure_text(change.outcome));
  }
  const std::string forced = close_over(context.reader(), asked) ? "forced: " + std::string(closed) : "";
  journal(context, {"count undo", number, "done", forced});
  context.tell("Took back the approval of " + number + "; read back, it is open and nothing is posted.");
  return exit_done;
}

}  // namespace

const Verb count_undo_verb{
    .name = "count undo",
    .arguments = "CHECKNO",
    .summary = "take the approval of a stocktaking back",
    .help =
        "Deletes what the approval of a stocktaking has posted and opens it again, so that it can be "
        "changed\n"
        "and approved once more.",
    .options = options,
    .examples = examples,
    .least_arguments = 1,
    .most_arguments = 1,
    .run = run,
};

}  // namespace tallyra::client
