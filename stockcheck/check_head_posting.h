#pragma once

#include <string>

#include "frame/connection.h"
#include "frame/date_literal.h"

namespace tallyra::stockcheck {

// Writes the counted differences of a stocktaking as one posting, a document of the counted department: per
// part, counted quantity less what moved after the last close up to the day of the count. Parts without a
// difference or without a counted quantity get no line; a stocktaking without differences gets no document.
//
// Wants an open transaction on the connection and commits it, unless the stocktaking has no lines. Throws
// Error with the transaction still open; what is written up to then goes with the connection.
void PostCheckIssue(const std::string& cCHECKNO, frame::Connection& connection,
                    const frame::DateLiteral& literal);

}  // namespace tallyra::stockcheck
