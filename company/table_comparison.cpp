#include "company/table_comparison.h"

#include <algorithm>

namespace tallyra::company {

std::string difference_of(std::vector<std::string> source, std::vector<std::string> copy) {
  std::ranges::sort(source);
  std::ranges::sort(copy);
  const auto [left, right] = std::ranges::mismatch(source, copy);
  const bool at_end = right == copy.end();
  if (left == source.end() && at_end) return {};
  // The smaller of the two stands nowhere in the other.
  if (at_end || (left != source.end() && *left < *right)) return "the source alone has (" + *left + ")";
  return "the copy alone has (" + *right + ")";
}

}  // namespace tallyra::company
