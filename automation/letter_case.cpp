#include "automation/letter_case.h"

#include <cstdint>

namespace tallyra::automation {
namespace {

// Every capital's small letter has as many bytes as the capital itself.
struct Capitals {
  std::uint32_t first;
  std::uint32_t last;
  std::uint32_t step;
  std::int32_t to_small;
};

constexpr Capitals alphabets[] = {
    {'A', 'Z', 1, 32},
    // Latin
    {0xC0, 0xD6, 1, 32},
    {0xD8, 0xDE, 1, 32},
    {0x100, 0x12E, 2, 1},
    {0x132, 0x136, 2, 1},
    {0x139, 0x147, 2, 1},
    {0x14A, 0x176, 2, 1},
    {0x178, 0x178, 1, -121},
    {0x179, 0x17D, 2, 1},
    {0x1E00, 0x1E94, 2, 1},
    {0x1EA0, 0x1EFE, 2, 1},
    // Greek
    {0x386, 0x386, 1, 38},
    {0x388, 0x38A, 1, 37},
    {0x38C, 0x38C, 1, 64},
    {0x38E, 0x38F, 1, 63},
    {0x391, 0x3A1, 1, 32},
    {0x3A3, 0x3AB, 1, 32},
    // Cyrillic
    {0x400, 0x40F, 1, 80},
    {0x410, 0x42F, 1, 32},
    {0x460, 0x480, 2, 1},
    {0x48A, 0x4BE, 2, 1},
    {0x4C1, 0x4CD, 2, 1},
    {0x4D0, 0x52E, 2, 1},
    // Armenian
    {0x531, 0x556, 1, 48},
    // Latin of full width
    {0xFF21, 0xFF3A, 1, 32},
};

std::uint32_t small_letter(std::uint32_t letter) {
  for (const auto& [first, last, step, to_small] : alphabets)
    if (letter >= first && letter <= last && (letter - first) % step == 0)
      return letter + static_cast<std::uint32_t>(to_small);
  return letter;
}

// The number of bytes of a character by its first one; 1 where none of the alphabets lies.
std::size_t bytes_from(unsigned char lead) {
  if (lead >= 0xC2 && lead < 0xE0) return 2;
  return (lead & 0xF0) == 0xE0 ? 3 : 1;
}

bool are_continuations(std::string_view bytes) {
  for (const char byte : bytes)
    if ((byte & 0xC0) != 0x80) return false;
  return true;
}

void make_small(std::string& text, std::size_t at, std::size_t size) {
  std::uint32_t letter = static_cast<unsigned char>(text[at]) & (size == 1 ? 0x7FU : 0x3FU >> (size - 1));
  for (std::size_t i = 1; i < size; ++i)
    letter = letter << 6 | (static_cast<unsigned char>(text[at + i]) & 0x3FU);
  std::uint32_t rest = small_letter(letter);
  if (rest == letter) return;
  for (std::size_t i = size - 1; i > 0; --i, rest >>= 6)
    text[at + i] = static_cast<char>(0x80 | (rest & 0x3F));
  const unsigned mark = size == 1 ? 0 : 0xF00U >> size & 0xFFU;
  text[at] = static_cast<char>(mark | rest);
}

}  // namespace

std::string small_letters(std::string_view text) {
  std::string result(text);
  std::size_t size = 1;
  for (std::size_t at = 0; at < result.size(); at += size) {
    const auto lead = static_cast<unsigned char>(result[at]);
    size = bytes_from(lead);
    if (size > result.size() - at || !are_continuations(std::string_view(result).substr(at + 1, size - 1)))
      size = 1;
    if (size > 1 || lead < 0x80) make_small(result, at, size);
  }
  return result;
}

}  // namespace tallyra::automation
