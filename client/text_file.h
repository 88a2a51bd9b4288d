#pragma once

#include <string>

namespace tallyra::client {

// Throws UsageError, which names it, for a file that is missing, a directory, or cannot be read.
void require_readable(const std::string& path);

// The whole of a file; throws as well.
std::string text_of_file(const std::string& path);

// Puts a file in place of the one that is there, if any, once all of it is written: a full disk leaves what
// was there. Whether that was done.
bool replace_file(const std::string& path, const std::string& text);

}  // namespace tallyra::client
