#include "standins/ado/folded_column_name.h"

#include <algorithm>

namespace tallyra::standins::ado {

std::string folded_column_name(std::string_view name) {
  std::string result(name);
  if (std::ranges::any_of(result, [](char c) { return c >= 'A' && c <= 'Z'; })) return result;
  for (char& c : result)
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - ('a' - 'A'));
  return result;
}

}  // namespace tallyra::standins::ado
