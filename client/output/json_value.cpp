#include "client/output/json_value.h"

#include <charconv>
#include <cmath>
#include <type_traits>

#include "client/value_text.h"

namespace tallyra::client {
namespace {

// The double that is written with the digits of the single: 0.1 rather than 0.10000000149011612.
double widened(float number) {
  char digits[32];
  const auto written = std::to_chars(digits, digits + sizeof digits, number);
  double result = number;
  std::from_chars(digits, written.ptr, result);
  return result;
}

}  // namespace

Json number_json(double number) {
  constexpr double largest_exact = 9007199254740992.0;
  if (!std::isfinite(number)) return nullptr;
  if (number == std::floor(number) && std::fabs(number) <= largest_exact)
    return static_cast<std::int64_t>(number);
  return number;
}

Json value_json(const automation::Value& value) {
  return value.visit([&](const auto& content) -> Json {
    using T = std::remove_cvref_t<decltype(content)>;
    if constexpr (std::is_same_v<T, std::monostate> || std::is_same_v<T, automation::Null> ||
                  std::is_same_v<T, automation::Missing>) {
      return nullptr;
    } else if constexpr (std::is_same_v<T, float>) {
      return number_json(widened(content));
    } else if constexpr (std::is_same_v<T, double>) {
      return number_json(content);
    } else if constexpr (std::is_arithmetic_v<T> || std::is_same_v<T, std::string>) {
      return content;
    } else if constexpr (std::is_same_v<T, automation::Object>) {
      if (!content) return nullptr;
      return {{"kind", type_name(value)}};
    } else if constexpr (std::is_same_v<T, automation::Opaque>) {
      return {{"kind", type_name(value)}};
    } else {
      return shown_text(value);
    }
  });
}

std::string json_text(const Json& json) {
  constexpr int indent = 2;
  return json.dump(indent, ' ', false, Json::error_handler_t::replace) + "\n";
}

}  // namespace tallyra::client
