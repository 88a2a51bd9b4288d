#pragma once

#include <array>
#include <cstddef>

// What the characters of a statement are, byte by byte.
namespace tallyra::standins::ado::dialect {

inline constexpr auto name_byte = [] {
  std::array<bool, 256> table{};
  for (int c = 0; c < 256; ++c)
    table[static_cast<std::size_t>(c)] = (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') ||
                                         (c >= 'a' && c <= 'z') || c == '_' || c == '$' || c >= 0x80;
  return table;
}();

// Whether it continues a plain word.
inline bool is_name_byte(char c) {
  return name_byte[static_cast<unsigned char>(c)];
}
inline bool is_digit(char c) {
  return c >= '0' && c <= '9';
}
inline bool is_blank(char c) {
  return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f';
}

}  // namespace tallyra::standins::ado::dialect
