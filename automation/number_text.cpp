#include "automation/number_text.h"

#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdlib>

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

}  // namespace tallyra::automation
