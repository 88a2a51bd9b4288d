#include "company/options.h"

#include <charconv>

namespace tallyra::company {
namespace {

bool read_number(const char* first, const char* last, int& number) {
  const auto [end, error] = std::from_chars(first, last, number);
  return error == std::errc{} && end == last;
}

}  // namespace

std::chrono::year_month parse_month(const std::string& text) {
  const char* begin = text.data();
  int year = 0;
  int month = 0;
  // Years before 2005 would fall under the floor dates from which a first close or stocktaking counts.
  if (text.size() != 7 || text[4] != '-' || !read_number(begin, begin + 4, year) ||
      !read_number(begin + 5, begin + 7, month) || month < 1 || month > 12 || year < 2005 || year > 2100) {
    throw Refusal("the start month must be written YYYY-MM, from 2005-01 to 2100-12, not '" + text + "'");
  }
  return std::chrono::year{year} / std::chrono::month{static_cast<unsigned>(month)};
}

}  // namespace tallyra::company
