#pragma once

#include <string>
#include <string_view>

#include "automation/value.h"

namespace tallyra::client {

// The name of a value's type as a person reads it: "text", "double", "date", ...
std::string_view type_name(const automation::Value& value);

// A value for the eye: the default text where there is one, "NULL" for Null, nothing for Empty and for what
// is missing, words in parentheses for what has no text. Never throws.
std::string shown_text(const automation::Value& value);

// What a column holds, for a table and for a sum: nothing stands for Null, which is a word of the raw calls.
std::string text_or_nothing(const automation::Value& value);
double number_or_zero(const automation::Value& value);

}  // namespace tallyra::client
