#pragma once

#include <string>

#include "frame/call.h"

namespace tallyra::transactions {

// Writes the lines of document `from` once more as lines of document `to`, in the order they are found and
// with their line numbers. They belong to the creator that the collections of the new header name, and are
// dated now, each in the form of what `system_database`, the field of the session, holds then. Needs an open
// connection and leaves the transaction to the caller.
void copy_lines(frame::Call& call, const frame::FieldCollections& header, const std::string& system_database,
                const std::string& from, const std::string& to);

}  // namespace tallyra::transactions
