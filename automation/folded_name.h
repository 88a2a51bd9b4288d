#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace tallyra::automation {

// Member names, ProgIDs and column names are ASCII words compared without regard to case: the lower-case
// form.
inline std::string folded(std::string_view name) {
  std::string result(name);
  for (char& c : result)
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c + ('a' - 'A'));
  return result;
}

inline bool equals_folded(std::string_view left, std::string_view right) {
  if (left.size() != right.size()) return false;
  for (std::size_t i = 0; i < left.size(); ++i) {
    const auto fold = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; };
    if (fold(left[i]) != fold(right[i])) return false;
  }
  return true;
}

template <std::size_t N>
bool is_one_of(const std::array<std::string_view, N>& names, std::string_view name) {
  return std::ranges::any_of(names, [&](std::string_view entry) { return equals_folded(entry, name); });
}

}  // namespace tallyra::automation
