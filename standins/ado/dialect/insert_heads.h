#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tallyra::standins::ado::dialect {

// Everything of an INSERT up to and including the parenthesis that opens its values.
struct InsertHead {
  std::string text;
  std::vector<bool> dates;  // per value, whether its column holds dates
};

// The heads met lately. A close sends the same few heads tens of thousands of times.
class InsertHeads {
 public:
  // The head that `sql` begins with, character for character; null when it is not known. Valid until the next
  // `remember` or `clear`.
  const InsertHead* match(std::string_view sql);

  // Takes the place of the oldest head when there is no room left.
  void remember(std::string_view text, const std::vector<bool>& dates);
  void clear() { heads_.clear(); }

 private:
  std::vector<InsertHead> heads_;
  std::size_t last_ = 0;    // matched last
  std::size_t oldest_ = 0;  // replaced next
};

}  // namespace tallyra::standins::ado::dialect
