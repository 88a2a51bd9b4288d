#pragma once

#include <cstdint>
#include <string>

#include "automation/value.h"

namespace tallyra::automation {

// Conversions as automation makes them by default, in one form whatever the user's locale. An object stands
// for the value of its default member. Errors: 94 for Null, 13 for what cannot be converted, 6 when out of
// range.

std::string to_text(const Value& value);
double to_double(const Value& value);
float to_single(const Value& value);
// Halves round to the even neighbour.
std::int16_t to_int16(const Value& value);
std::int32_t to_int32(const Value& value);
bool to_boolean(const Value& value);
Date to_date(const Value& value);
// 424 when the value is no object.
Object to_object(const Value& value);

// Appends the text of a value that is one piece of a concatenation: there Null is no text at all.
void append_concatenated(std::string& out, const Value& value);

// Appends the text of the absolute value of a number; Null is no text.
void append_magnitude(std::string& out, const Value& value);

// Comparisons of a value with a number; nothing compares true with Null. 13 for a text that is no number.
bool equals_number(const Value& value, double number);
bool exceeds_number(const Value& value, double number);

// Without blanks at both ends.
std::string trimmed(std::string_view text);

}  // namespace tallyra::automation
