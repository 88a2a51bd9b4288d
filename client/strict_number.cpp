#include "client/strict_number.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace tallyra::client {
namespace {

std::string_view reason(std::string_view text) {
  if (text.find(',') != std::string_view::npos)
    return "a comma is no decimal point; write 1.5, and thousands without a mark";
  if (text.find_first_of("()") != std::string_view::npos) return "write what is below zero with a minus: -5";
  if (std::ranges::any_of(text, [](char c) { return c < ' ' || c > '~' || c == '$'; }))
    return "write it without the sign of a currency or any other mark";
  return "write digits, with a point before the fraction: 1.5";
}

}  // namespace

std::optional<double> strict_number(std::string_view text) {
  if (text.starts_with('+') && !text.starts_with("+-")) text.remove_prefix(1);
  double number = 0;
  const char* const end = text.data() + text.size();
  const auto [stopped, error] = std::from_chars(text.data(), end, number);
  if (error != std::errc{} || stopped != end || !std::isfinite(number)) return std::nullopt;
  return number;
}

std::string number_refusal(std::string_view text) {
  return "'" + std::string(text) + "' is no number: " + std::string(reason(text));
}

}  // namespace tallyra::client
