#pragma once

#include <string_view>

#include "standins/ado/cell.h"
#include "standins/ado/column.h"
#include "standins/ado/text_arena.h"

namespace tallyra::standins::ado {

// The cell that the driver's text of a value means in a column of the type. An engine without strict types
// may hold a value of another kind there: a number of a wider type stays that number, anything else stays
// the text it is.
Cell parse_cell(DataType type, std::string_view text, TextArena& arena);

// An integer in the narrowest kind that the column's type and the value allow.
Cell integer_cell(DataType type, std::int64_t value);

// "YYYY-MM-DD", or that with a time of day behind a blank or a 'T', to a fraction of a second. False for any
// other text.
bool parse_time_stamp(std::string_view text, double& serial);

}  // namespace tallyra::standins::ado
