#include "client/rounded.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace tallyra::client {

double rounded(double number, int decimals) {
  constexpr std::size_t digits_before_the_point = 310;
  constexpr std::size_t most_decimals = 300;
  char digits[digits_before_the_point + most_decimals];
  const auto [end, error] =
      std::to_chars(digits, digits + sizeof digits, number, std::chars_format::fixed, decimals);
  double result = number;
  if (error == std::errc{} && std::isfinite(number)) std::from_chars(digits, end, result);
  return result == 0 ? 0 : result;  // not -0
}

double rounded_difference(double left, double right) {
  constexpr int digits = 12;
  constexpr int most_decimals = 300;
  const double larger = std::max(std::fabs(left), std::fabs(right));
  const double difference = left - right;
  if (larger == 0 || !std::isfinite(difference)) return difference;
  const int before_the_point = static_cast<int>(std::floor(std::log10(larger))) + 1;
  return rounded(difference, std::clamp(digits - before_the_point, 0, most_decimals));
}

bool same_quantity(double left, double right, double rounding) {
  constexpr double half_a_unit_of_the_12th_digit = 5e-12;
  const double difference = std::fabs(left - right);
  return difference <= half_a_unit_of_the_12th_digit * std::max(std::fabs(left), std::fabs(right)) ||
         difference <= rounding;
}

}  // namespace tallyra::client
