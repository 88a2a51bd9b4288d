#pragma once

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

}  // namespace tallyra::automation
