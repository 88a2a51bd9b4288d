#pragma once

#include <string>

namespace tallyra::client {

// The whole of a file. Throws UsageError, which names it, for one that is missing, a directory, or cannot be
// read.
std::string text_of_file(const std::string& path);

}  // namespace tallyra::client
