#pragma once

#include <string>

#include "automation/value.h"
#include "schema/description.h"

namespace tallyra::company {

// Appends a value of a column as a statement of any engine writes it: NULL, a number with all its digits,
// 'text' with quotes doubled, 'YYYY-MM-DD HH:MM:SS'. One value has one form whatever engine it was read from,
// so that rows can be compared by it. Throws Refusal for what the column cannot hold elsewhere, such as a
// text in a column of dates.
void append_literal(std::string& out, const schema::Column& column, const automation::Value& value);

}  // namespace tallyra::company
