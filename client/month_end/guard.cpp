#include "client/month_end/guard.h"

#include "client/month_end/leftovers.h"
#include "client/month_end/lock.h"
#include "client/refusal.h"

namespace tallyra::client {

void require_no_unfinished_close(const Reader& reader, bool breaks_lock) {
  if (const auto holder = lock_holder(reader); holder && !holder->may_be_taken(breaks_lock))
    throw Refusal(holder->refusal(), exit_locked);
  require_no_leftovers(reader);
}

void require_no_leftovers(const Reader& reader) {
  const auto left = leftovers(reader);
  if (left.empty()) return;
  throw Refusal(
      "an unfinished close has left " + leftovers_text(left) +
      ", which would be counted as stock: close that date again, or delete what is left with 'reopen'");
}

}  // namespace tallyra::client
