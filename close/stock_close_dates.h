#pragma once

#include <string>
#include <string_view>

#include "frame/date_literal.h"

namespace tallyra::close {

// Close documents are dated the day after the close date: the literal of that day. Throws Error 13 for a text
// that is no date.
std::string next_day_literal(const frame::DateLiteral& literal, std::string_view close_date);

}  // namespace tallyra::close
