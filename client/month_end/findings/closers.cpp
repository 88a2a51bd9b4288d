#include "client/month_end/findings/all_findings.h"
#include "client/verbs/context.h"

// What other runs of a close are doing or have left.
namespace tallyra::client {
namespace {

Found look_at_lock(const CloseCase& close) {
  if (!close.lock || close.lock->dead() || close.lock->process == this_process()) return {};
  return {1, {close.lock->text()}};
}

// A dead process that held the lock counts as one more, also when it has left no document.
Found look_at_leftovers(const CloseCase& close) {
  Found found;
  // What is there is being written, and is not left.
  if (close.lock && close.lock->is_closing() && close.lock->process != this_process()) return found;
  if (close.lock && close.lock->dead()) found = {1, {close.lock->text() + ", but that process has ended"}};
  for (const Leftover& document : close.left) {
    if (++found.count > static_cast<std::int64_t>(first_rows)) continue;
    found.first.push_back("document " + document.document + " for " + day_text(document.close_date) +
                          (document.of_company ? ", company" : ", department " + document.department) + ": " +
                          std::to_string(document.lines) + " lines");
  }
  return found;
}

}  // namespace

const Finding another_closer{"another-closer", Severity::error, "another one is at work on a close",
                             "wait until it has ended; 'status' tells", look_at_lock};
const Finding unfinished_close{"unfinished-close", Severity::warning,
                               "a close did not come to its end; the next one deletes what it has left",
                               "see that no other program closes at this moment; then just close",
                               look_at_leftovers};

}  // namespace tallyra::client
