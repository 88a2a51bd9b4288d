#include "close/stock_close_period.h"

#include <cmath>

#include "automation/convert.h"

namespace tallyra::close {
namespace {

std::string next_day(std::string_view close_date, const frame::DateLiteral& literal) {
  const automation::Date date = automation::to_date(automation::Value(close_date));
  return literal.of_date(automation::add_days({std::trunc(date.serial)}, 1));
}

}  // namespace

ClosePeriod period_until(std::string_view close_date, const frame::DateLiteral& literal) {
  return {.close = literal.of_text(close_date), .next_day = next_day(close_date, literal)};
}

}  // namespace tallyra::close
