#include "client/report/number_text.h"

#include <charconv>
#include <cmath>

#include "automation/convert.h"
#include "client/rounded.h"

namespace tallyra::client {
namespace {

constexpr int quantity_decimals = 3;

// Plain digits with a point. A number so large that it does not fit has no meaning for a person anyway.
std::string fixed(double number, int decimals) {
  char digits[64];
  const auto [end, error] =
      std::to_chars(digits, digits + sizeof digits, number, std::chars_format::fixed, decimals);
  return error == std::errc{} ? std::string(digits, end) : plain_number(number);
}

// "-0.00" is nothing.
std::string magnitude(double number, int decimals) {
  return fixed(std::fabs(number), decimals);
}

bool is_nothing(std::string_view digits) {
  return digits.find_first_not_of("0.") == std::string_view::npos;
}

std::string grouped(std::string_view digits, const ReportWords& words) {
  constexpr std::size_t group = 3;
  const std::size_t point = std::min(digits.find('.'), digits.size());
  std::string text;
  for (std::size_t i = 0; i < point; ++i) {
    if (i != 0 && (point - i) % group == 0) text += words.group_separator;
    text += digits[i];
  }
  if (point != digits.size()) text.append(words.decimal_point).append(digits.substr(point + 1));
  return text;
}

std::string signed_text(double number, const std::string& digits, const ReportWords& words, bool plus) {
  std::string text = grouped(digits, words);
  if (is_nothing(digits)) return text;
  // The sign that is as wide as a plus.
  if (number < 0) return "\u2212" + text;
  return plus ? "+" + text : text;
}

}  // namespace

std::string value_text(double value, const ReportWords& words) {
  return signed_text(value, magnitude(value, value_decimals), words, false);
}

std::string signed_value_text(double value, const ReportWords& words) {
  return signed_text(value, magnitude(value, value_decimals), words, true);
}

std::string quantity_text(double quantity, const ReportWords& words) {
  std::string digits = magnitude(quantity, quantity_decimals);
  if (digits.find('.') != std::string::npos) {
    digits.resize(digits.find_last_not_of('0') + 1);
    if (digits.ends_with('.')) digits.pop_back();
  }
  return signed_text(quantity, digits, words, false);
}

std::string plain_number(double number) {
  return automation::to_text(automation::Value(rounded(number, figure_decimals)));
}

}  // namespace tallyra::client
