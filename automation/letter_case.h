#pragma once

#include <string>
#include <string_view>

namespace tallyra::automation {

// A UTF-8 text with the capitals of the Latin, Greek, Cyrillic and Armenian alphabets and of full width made
// small, whatever the locale: two texts that differ in case only have one form. Bytes that are no UTF-8 stay.
std::string small_letters(std::string_view text);

}  // namespace tallyra::automation
