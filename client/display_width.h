#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tallyra::client {

// How many columns of a terminal a UTF-8 text takes: two for wide characters such as Chinese ones and
// emoji, none for marks that sit on the character before them, one for all others.
std::size_t display_width(std::string_view text);

// A text as lines that can be printed anywhere: cut at line ends; other control characters shown as \x1B,
// bytes that are no UTF-8 as U+FFFD. At least one line, also for an empty text.
std::vector<std::string> printable_lines(std::string_view text);

// The same lines in one text.
std::string printable(std::string_view text);

// The same with line ends where they have to be, between words where that can be, for no line to take more
// than `width` columns.
std::string wrapped(std::string_view text, std::size_t width);

// Whether it is UTF-8 without control characters other than line ends and tabs.
bool is_text(std::string_view text);

// The longest beginning of a text that fits into `width` columns.
std::string_view cut_to_width(std::string_view text, std::size_t width);

}  // namespace tallyra::client
