#include <algorithm>
#include <charconv>
#include <cstdint>

#include "automation/error.h"
#include "automation/number_text.h"

namespace tallyra::automation {
namespace {

bool is_blank(char c) {
  return c == ' ' || (c >= '\t' && c <= '\r');
}

std::string_view trim_blanks(std::string_view text) {
  constexpr std::string_view no_break_space = "\xC2\xA0";
  for (;;) {
    if (!text.empty() && is_blank(text.front()))
      text.remove_prefix(1);
    else if (text.starts_with(no_break_space))
      text.remove_prefix(no_break_space.size());
    else
      break;
  }
  for (;;) {
    if (!text.empty() && is_blank(text.back()))
      text.remove_suffix(1);
    else if (text.ends_with(no_break_space))
      text.remove_suffix(no_break_space.size());
    else
      break;
  }
  return text;
}

double parse_radix(std::string_view digits, int base) {
  std::uint32_t value = 0;
  const auto [end, status] = std::from_chars(digits.data(), digits.data() + digits.size(), value, base);
  if (status == std::errc::result_out_of_range) throw Error(error_number::overflow);
  if (status != std::errc{} || end != digits.data() + digits.size()) throw Error(error_number::type_mismatch);
  return static_cast<double>(value);
}

// Takes the decoration off both ends; each of sign, parentheses and currency sign may stand once.
struct Decoration {
  bool negative = false;
  bool signed_ = false;
  bool currency = false;

  std::string_view strip(std::string_view text) {
    text = trim_blanks(text);
    if (text.size() >= 2 && text.front() == '(' && text.back() == ')') {
      negative = signed_ = true;
      text = trim_blanks(text.substr(1, text.size() - 2));
    }
    for (bool again = true; again && !text.empty();) {
      again = false;
      if (!signed_ && (text.front() == '-' || text.front() == '+')) {
        signed_ = again = true;
        negative = text.front() == '-';
      } else if (!currency && text.front() == '$') {
        currency = again = true;
      }
      if (again) text = trim_blanks(text.substr(1));
    }
    if (!signed_ && !text.empty() && (text.back() == '-' || text.back() == '+')) {
      signed_ = true;
      negative = text.back() == '-';
      text = trim_blanks(text.substr(0, text.size() - 1));
    }
    return text;
  }
};

bool is_digit(char c) {
  return c >= '0' && c <= '9';
}

// digits [, digits] [. digits] [e [sign] digits], with a digit on at least one side of the point
bool is_decimal_number(std::string_view text) {
  std::size_t at = 0;
  std::size_t digits = 0;
  for (; at < text.size() && (is_digit(text[at]) || (text[at] == ',' && digits > 0)); ++at)
    if (text[at] != ',') ++digits;
  if (at < text.size() && text[at] == '.') {
    for (++at; at < text.size() && is_digit(text[at]); ++at) ++digits;
  }
  if (digits == 0) return false;
  if (at == text.size()) return true;
  if (text[at] != 'e' && text[at] != 'E') return false;
  ++at;
  if (at < text.size() && (text[at] == '+' || text[at] == '-')) ++at;
  const std::size_t exponent_start = at;
  while (at < text.size() && is_digit(text[at])) ++at;
  return at == text.size() && at > exponent_start;
}

// The place of the first digit that is not 0, counted from the point: positive for 1 and above. Of a number
// in plain digits with an exponent or without.
long decimal_magnitude(std::string_view number) {
  const auto exponent_at = std::min(number.find_first_of("eE"), number.size());
  const std::string_view digits = number.substr(0, exponent_at);
  const auto first = std::min(digits.find_first_not_of("0."), digits.size());
  const auto point = std::min(digits.find('.'), digits.size());
  long magnitude = first < point ? static_cast<long>(point - first) : -static_cast<long>(first - point);
  if (exponent_at < number.size()) {
    std::string_view text = number.substr(exponent_at + 1);
    if (text.front() == '+') text.remove_prefix(1);
    long exponent = 0;
    // An exponent beyond all bounds decides alone.
    constexpr long boundless = 1'000'000'000;
    if (std::from_chars(text.data(), text.data() + text.size(), exponent).ec ==
        std::errc::result_out_of_range)
      exponent = text.front() == '-' ? -boundless : boundless;
    magnitude += std::clamp(exponent, -boundless, boundless);
  }
  return magnitude;
}

}  // namespace

double parse_number(std::string_view text) {
  Decoration decoration;
  const std::string_view body = decoration.strip(text);
  if (body.size() > 2 && body.front() == '&') {
    const char radix = static_cast<char>(body[1] | 0x20);
    if (decoration.signed_ || (radix != 'h' && radix != 'o')) throw Error(error_number::type_mismatch);
    return parse_radix(body.substr(2), radix == 'h' ? 16 : 8);
  }
  if (!is_decimal_number(body)) throw Error(error_number::type_mismatch);
  std::string plain;
  plain.reserve(body.size());
  for (const char c : body)
    if (c != ',') plain += c;
  double value = 0;
  const auto status = std::from_chars(plain.data(), plain.data() + plain.size(), value).ec;
  if (status == std::errc::result_out_of_range) {
    // from_chars reports both ends of the range alike; only what is too small is 0.
    if (decimal_magnitude(plain) > 0) throw Error(error_number::overflow);
    value = 0;
  }
  return decoration.negative ? -value : value;
}

}  // namespace tallyra::automation
