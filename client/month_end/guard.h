#pragma once

#include "client/database/reader.h"

namespace tallyra::client {

// For whatever reads stock that a close would spoil, the approval of a stocktaking above all: throws Refusal,
// which says what to do, while somebody is at work on a close or an unfinished one has left documents. A lock
// that the caller is about to break counts for nothing.
void require_no_unfinished_close(const Reader& reader, bool breaks_lock = false);
// The documents alone: for who holds the lock, before which another one may have been killed.
void require_no_leftovers(const Reader& reader);

}  // namespace tallyra::client
