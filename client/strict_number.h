#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tallyra::client {

// A number as it is written here: digits, one '.', an exponent; nothing before or behind it. Conversions of
// the platform read more: "1,5" as 15, "$5" as 5, "(5)" as -5.
std::optional<double> strict_number(std::string_view text);

// "'1,5' is no number: ...", with what would be right.
std::string number_refusal(std::string_view text);

}  // namespace tallyra::client
