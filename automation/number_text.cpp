#include "automation/number_text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdlib>

#include "automation/error.h"

namespace tallyra::automation {
namespace {

// The significant digits of a number that is neither 0 nor endless, without zeros at the end.
struct Significant {
  char digits[20];
  int count = 0;
  int exponent = 0;  // of the first digit
  bool is_negative;

  Significant(double value, int precision) : is_negative(value < 0) {
    char buffer[40];
    const auto end =
        std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::scientific, precision - 1)
            .ptr;
    // [-]d.ddddde[+-]xx
    const char* cursor = is_negative ? buffer + 1 : buffer;
    for (; *cursor != 'e'; ++cursor)
      if (*cursor != '.') digits[count++] = *cursor;
    ++cursor;
    std::from_chars(*cursor == '+' ? cursor + 1 : cursor, end, exponent);
    while (count > 1 && digits[count - 1] == '0') --count;
  }

  std::string_view from(int first, int last) const {
    return {digits + first, static_cast<std::size_t>(last - first)};
  }
};

void append_plain(std::string& out, const Significant& number) {
  if (number.exponent < 0) {
    out += "0.";
    out.append(static_cast<std::size_t>(-number.exponent - 1), '0');
    out += number.from(0, number.count);
    return;
  }
  const int integers = number.exponent + 1;
  if (number.count <= integers) {
    out += number.from(0, number.count);
    out.append(static_cast<std::size_t>(integers - number.count), '0');
    return;
  }
  out += number.from(0, integers);
  out += '.';
  out += number.from(integers, number.count);
}

void append_with_exponent(std::string& out, const Significant& number) {
  out += number.digits[0];
  if (number.count > 1) {
    out += '.';
    out += number.from(1, number.count);
  }
  out += 'E';
  out += number.exponent < 0 ? '-' : '+';
  const int magnitude = std::abs(number.exponent);
  if (magnitude < 10) out += '0';
  out += std::to_string(magnitude);
}

void append_significant(std::string& out, double value, int precision) {
  if (std::isnan(value)) {
    out += "NAN";
  } else if (std::isinf(value)) {
    out += value < 0 ? "-INF" : "INF";
  } else if (value == 0) {
    out += '0';
  } else {
    const Significant number(value, precision);
    if (number.is_negative) out += '-';
    const int decimals = number.count - 1 - number.exponent;
    const bool is_plain = number.exponent < precision && decimals <= precision;
    if (is_plain)
      append_plain(out, number);
    else
      append_with_exponent(out, number);
  }
}

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

void append_number(std::string& out, double value) {
  // Whole numbers are the common quantities and have a short way to the same text.
  if (value > -1e15 && value < 1e15) {
    const auto whole = static_cast<std::int64_t>(value);
    if (static_cast<double>(whole) == value) {
      char buffer[24];
      const auto end = std::to_chars(buffer, buffer + sizeof buffer, whole).ptr;
      out.append(buffer, end);
      return;
    }
  }
  append_significant(out, value, 15);
}

void append_number(std::string& out, float value) {
  append_significant(out, value, 7);
}

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
