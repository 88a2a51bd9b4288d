#pragma once

#include <array>
#include <cstddef>

// Which characters a shape's scanner takes for what.
namespace tallyra::standins::ado {

inline constexpr auto name_byte = [] {
  std::array<bool, 256> table{};
  for (int c = 0; c < 256; ++c)
    table[static_cast<std::size_t>(c)] =
        (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_' || c >= 0x80;
  return table;
}();

inline bool is_name_byte(char c) {
  return name_byte[static_cast<unsigned char>(c)];
}
inline bool is_digit(char c) {
  return c >= '0' && c <= '9';
}
inline bool is_blank(char c) {
  return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f';
}

}  // namespace tallyra::standins::ado
