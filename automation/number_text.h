#pragma once

#include <string>
#include <string_view>

namespace tallyra::automation {

// Default text of a double: 15 significant digits, trailing zeros dropped, '.' as the point whatever the
// locale; plain digits when neither side of the point needs more than 15 places, else d.dddE+xx.
void append_number(std::string& out, double value);

// The same with 7 significant digits.
void append_number(std::string& out, float value);

// Reads a number the way automation does: blanks around, one sign before or behind or parentheses, thousands
// commas, a currency sign, an exponent, "&H" and "&O". Throws Error 13 for what is no number and 6 when it is
// too large for a double.
double parse_number(std::string_view text);

}  // namespace tallyra::automation
