#pragma once

#include "client/call_run.h"

namespace tallyra::client {

// Whether a call was the approval of a stocktaking that may have posted what differs. What the class refuses
// has posted nothing, and neither has a call that it did not take: it raises nothing once it has begun. Any
// other error does not tell.
bool may_have_posted(const Call& call, const Outcome& outcome);

// What is wrong with the postings of stocktakings in the database, and what to do; empty when nothing is. An
// approval while no document number can be issued stores its posting without one, and reports nothing; what
// is found may also be that of an earlier one. Needs an Apartment and the session of the call. That the
// database cannot be asked is a complaint too.
std::string posting_complaint(const Session& session);

}  // namespace tallyra::client
