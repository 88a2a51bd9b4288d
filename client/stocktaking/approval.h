#pragma once

#include <string>

#include "client/call_run.h"

namespace tallyra::client {

class VerbContext;

// Asks the numbering library for a number of a posting, which is used up by that. Throws Refusal when none is
// issued: an approval would store its posting under no number then, and tell nothing.
void require_posting_number(const VerbContext& context);

// What a change of the status of a stocktaking has come to. Its result does not tell: an approval that has
// posted reports an error of the transaction and is stored all the same.
struct StatusChange {
  Outcome outcome;
  bool stored = false;
};

// Updates the header with the tag, APPROVED or UNAPPROVED, and reads it back: it is stored when the status
// and the moment of this very change are there.
StatusChange change_status(const VerbContext& context, const std::string& number, bool approve);

}  // namespace tallyra::client
