#pragma once

#include <string>
#include <string_view>

#include "frame/date_literal.h"

namespace tallyra::close {

// The time that a month close covers, in date literals of one kind of database, quotes included.
struct ClosePeriod {
  // The last day, in the client's own words.
  std::string close;
  // The day after it, on which the close documents are dated.
  std::string next_day;
  // The close before this one: what is dated after it counts. Empty as long as nobody has looked for it.
  std::string previous = {};
  // When the documents are written; empty as long as it does not matter.
  std::string today = {};
};

// The period as far as the close date tells. Throws Error 13 for a text that is no date.
ClosePeriod period_until(std::string_view close_date, const frame::DateLiteral& literal);

}  // namespace tallyra::close
