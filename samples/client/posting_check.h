#pragma once

#include "samples/client/call.h"
#include "samples/client/session.h"

namespace tallyra::client {

// Whether a call approves a stocktaking, and so may post what differs.
bool approves_stocktaking(const Call& call);

// What is wrong with the postings of stocktakings in the database, and what to do; empty when nothing is. An
// approval while no document number can be issued stores its posting without one, and reports nothing. Needs
// an Apartment and the session of the call; throws automation::Error when the database cannot be asked.
std::string posting_complaint(const Session& session);

}  // namespace tallyra::client
