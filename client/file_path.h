#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace tallyra::client {

// Paths are UTF-8 everywhere in the client.
inline std::filesystem::path file_path(std::string_view text) {
  return std::u8string(text.begin(), text.end());
}

inline std::string path_text(const std::filesystem::path& path) {
  const std::u8string text = path.u8string();
  return {text.begin(), text.end()};
}

}  // namespace tallyra::client
