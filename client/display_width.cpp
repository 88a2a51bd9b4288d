#include "client/display_width.h"

#include <algorithm>
#include <iterator>

namespace tallyra::client {
namespace {

struct Range {
  char32_t first;
  char32_t last;
};

// Combining marks, joiners and direction marks, ascending.
constexpr Range zero_width[] = {
    {0x0300, 0x036F}, {0x0483, 0x0489}, {0x0591, 0x05BD}, {0x0610, 0x061A}, {0x064B, 0x065F},
    {0x0E31, 0x0E31}, {0x0E34, 0x0E3A}, {0x0E47, 0x0E4E}, {0x1AB0, 0x1AFF}, {0x1DC0, 0x1DFF},
    {0x200B, 0x200F}, {0x202A, 0x202E}, {0x2060, 0x2069}, {0x20D0, 0x20F0}, {0x302A, 0x302D},
    {0x3099, 0x309A}, {0xFE00, 0xFE0F}, {0xFE20, 0xFE2F}, {0xFEFF, 0xFEFF}, {0xE0100, 0xE01EF},
};

// East Asian wide and full-width blocks and emoji, ascending.
constexpr Range double_width[] = {
    {0x1100, 0x115F},   {0x231A, 0x231B},   {0x23E9, 0x23EC},   {0x2E80, 0x303E},   {0x3041, 0x4DBF},
    {0x4E00, 0xA4CF},   {0xA960, 0xA97F},   {0xAC00, 0xD7A3},   {0xF900, 0xFAFF},   {0xFE10, 0xFE19},
    {0xFE30, 0xFE6F},   {0xFF01, 0xFF60},   {0xFFE0, 0xFFE6},   {0x17000, 0x18CFF}, {0x1B000, 0x1B2FF},
    {0x1F300, 0x1F64F}, {0x1F680, 0x1F6FF}, {0x1F900, 0x1F9FF}, {0x20000, 0x3FFFD},
};

template <std::size_t Size>
bool contains(const Range (&ranges)[Size], char32_t character) {
  const auto found = std::ranges::lower_bound(ranges, character, {}, &Range::last);
  return found != std::end(ranges) && found->first <= character;
}

std::size_t character_width(char32_t character) {
  if (character < 0x300) return 1;
  if (contains(zero_width, character)) return 0;
  return contains(double_width, character) ? 2 : 1;
}

struct Decoded {
  char32_t character;
  std::size_t length;
  bool valid;
};

// The first character of a text that is not empty; a byte that begins no well-formed character stands alone.
Decoded decode(std::string_view text) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  const Decoded broken{0xFFFD, 1, false};
  const unsigned first = byte(0);
  if (first < 0x80) return {first, 1, true};
  const std::size_t length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
  if (first < 0xC2 || first > 0xF4 || text.size() < length) return broken;
  char32_t character = first & (0x7FU >> length);
  for (std::size_t i = 1; i < length; ++i) {
    if ((byte(i) & 0xC0U) != 0x80U) return broken;
    character = (character << 6U) | (byte(i) & 0x3FU);
  }
  constexpr char32_t smallest[] = {0, 0, 0x80, 0x800, 0x10000};
  const bool surrogate = character >= 0xD800 && character <= 0xDFFF;
  if (character < smallest[length] || character > 0x10FFFF || surrogate) return broken;
  return {character, length, true};
}

bool is_control(char32_t character) {
  return character < 0x20 || (character >= 0x7F && character <= 0x9F);
}

void append_escaped(std::string& out, char32_t character) {
  constexpr char digits[] = "0123456789ABCDEF";
  out += "\\x";
  out += digits[character >> 4U];
  out += digits[character & 0xFU];
}

// The bytes of the words that fit, without the blank behind them; of a word that is too long as much as fits,
// one byte at least.
std::size_t words_that_fit(std::string_view line, std::size_t width) {
  const std::size_t fits = cut_to_width(line, width).size();
  if (fits == line.size()) return fits;
  const std::size_t blank = line.rfind(' ', fits);
  const bool has_word = blank != std::string_view::npos && line.find_first_not_of(' ') < blank;
  return has_word ? blank : std::max<std::size_t>(fits, 1);
}

}  // namespace

std::size_t display_width(std::string_view text) {
  std::size_t width = 0;
  while (!text.empty()) {
    const Decoded next = decode(text);
    width += character_width(next.character);
    text.remove_prefix(next.length);
  }
  return width;
}

std::vector<std::string> printable_lines(std::string_view text) {
  std::vector<std::string> lines(1);
  while (!text.empty()) {
    const Decoded next = decode(text);
    if (next.character == '\n' || next.character == '\r') {
      text.remove_prefix(text.starts_with("\r\n") ? 2 : 1);
      lines.emplace_back();
      continue;
    }
    if (!next.valid) {
      lines.back() += "\xEF\xBF\xBD";
    } else if (is_control(next.character)) {
      append_escaped(lines.back(), next.character);
    } else {
      lines.back() += text.substr(0, next.length);
    }
    text.remove_prefix(next.length);
  }
  return lines;
}

std::string printable(std::string_view text) {
  std::string result;
  for (const std::string& line : printable_lines(text)) result.append(line) += '\n';
  result.pop_back();
  return result;
}

std::string wrapped(std::string_view text, std::size_t width) {
  std::string result;
  for (std::string_view line : printable_lines(text)) {
    for (std::size_t fits = words_that_fit(line, width); fits < line.size();
         fits = words_that_fit(line, width)) {
      result.append(line.substr(0, fits)) += '\n';
      line.remove_prefix(line[fits] == ' ' ? fits + 1 : fits);
    }
    result.append(line) += '\n';
  }
  result.pop_back();
  return result;
}

bool is_text(std::string_view text) {
  while (!text.empty()) {
    const Decoded next = decode(text);
    const bool blank = next.character == '\n' || next.character == '\r' || next.character == '\t';
    if (!next.valid || (is_control(next.character) && !blank)) return false;
    text.remove_prefix(next.length);
  }
  return true;
}

std::string_view cut_to_width(std::string_view text, std::size_t width) {
  std::size_t length = 0;
  std::size_t used = 0;
  while (length < text.size()) {
    const Decoded next = decode(text.substr(length));
    used += character_width(next.character);
    if (used > width) break;
    length += next.length;
  }
  return text.substr(0, length);
}

}  // namespace tallyra::client
