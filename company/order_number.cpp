#include "company/order_number.h"

#include <cstdio>

namespace tallyra::company {

std::string order_number(const char* prefix, Day day, int& last) {
  char digits[16];
  std::snprintf(digits, sizeof digits, "-%05d", ++last);
  return prefix + short_month(day) + digits;
}

}  // namespace tallyra::company
