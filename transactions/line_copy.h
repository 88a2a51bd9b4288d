#pragma once

#include <string>

#include "frame/date_literal.h"
#include "frame/method.h"

namespace tallyra::transactions {

// Writes the lines of document `from` once more as lines of document `to`, in the order they are found and
// with their line numbers. They belong to the creator that the collections of the new header name, and are
// dated now. Needs an open connection and leaves the transaction to the caller.
void copy_lines(frame::Call& call, const frame::FieldCollections& header, const frame::DateLiteral& literal,
                const std::string& from, const std::string& to);

}  // namespace tallyra::transactions
