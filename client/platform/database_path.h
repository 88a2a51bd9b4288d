#pragma once

#include <string>
#include <string_view>

namespace tallyra::client {

// Whether a path begins with a drive: "C:\stock.db".
inline bool has_drive(std::string_view path) {
  const auto is_letter = [](char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); };
  return path.size() > 2 && is_letter(path[0]) && path[1] == ':' && (path[2] == '\\' || path[2] == '/');
}

// The path of a database file as its driver takes it. Under Wine the driver is a library of the machine
// below, which knows no drives. Throws UsageError for a path that only Windows has.
std::string driver_path(const std::string& path);

}  // namespace tallyra::client
