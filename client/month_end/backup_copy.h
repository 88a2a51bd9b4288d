#pragma once

#include <string>

namespace tallyra::client {

// Copies a file that this process has open as a database. Opening and closing it here would let go the locks
// that the engine holds on it, so a process of its own does it. False where this system knows no way; throws
// Refusal when it fails. A file that is not there is not copied, and no failure. Ends in the middle at an
// interruption, which the caller asks for.
bool copy_open_database(const std::string& from, const std::string& to);

}  // namespace tallyra::client
