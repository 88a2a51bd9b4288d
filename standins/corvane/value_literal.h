#pragma once

#include <optional>
#include <string>

#include "automation/value.h"
#include "standins/corvane/column_kind.h"
#include "standins/corvane/dialect.h"

namespace tallyra::standins::corvane {

// The literal that writes a value into a column of the kind; nothing when the value does not convert without
// loss.
//
// Null and Empty are Null everywhere, an empty text too except in a text column. Texts stand between quotes,
// quotes inside doubled; a text with a NUL character has no literal, because drivers end the statement there.
// Numbers are bare, booleans 1 or 0. A column of whole numbers takes whole numbers only. A column of dates
// takes dates and texts of the forms "YYYY/MM/DD" and "YYYY/MM/DD HH:MM:SS", no numbers; a date fits into no
// column of numbers.
std::optional<std::string> value_literal(const automation::Value& value, ColumnKind kind, Dialect dialect);

}  // namespace tallyra::standins::corvane
