#include "close/stock_close_dates.h"

#include <cmath>

#include "automation/convert.h"

namespace tallyra::close {

std::string next_day_literal(const frame::DateLiteral& literal, std::string_view close_date) {
  const automation::Date date = automation::to_date(automation::Value(close_date));
  return literal.of_date(automation::add_days({std::trunc(date.serial)}, 1));
}

}  // namespace tallyra::close
