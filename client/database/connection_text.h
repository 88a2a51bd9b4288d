#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tallyra::client {

// A connection string as it may be shown: "***" in place of every password, also of one that stands in a
// quoted value such as that of Extended Properties.
std::string shown_connection(std::string_view connection_string);

// Any text with "***" behind what names a password, "password=..." in whatever form: a driver's message may
// quote what it was given.
std::string without_passwords(std::string_view text);

// The file that a connection string for SQLite names; nothing for any other string.
std::optional<std::string> sqlite_file(std::string_view connection_string);

}  // namespace tallyra::client
