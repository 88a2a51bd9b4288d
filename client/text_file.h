#pragma once

#include <string>

namespace tallyra::client {

// Throws UsageError, which names it, for a file that is missing, a directory, or cannot be read.
void require_readable(const std::string& path);

// The whole of a file; throws as well.
std::string text_of_file(const std::string& path);

}  // namespace tallyra::client
