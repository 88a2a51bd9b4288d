#pragma once

#include <span>
#include <string>
#include <string_view>

namespace tallyra::client {

// "; did you mean 'close'?" when one of the known words is close to what was written, else nothing. Case does
// not count.
std::string did_you_mean(std::string_view written, std::span<const std::string_view> known);

// The same over the words that a command can begin with: verbs and classes.
std::string resembling_word(std::string_view written);

}  // namespace tallyra::client
