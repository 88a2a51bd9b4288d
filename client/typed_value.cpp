#include "client/typed_value.h"

#include <charconv>
#include <cmath>
#include <optional>
#include <string>

#include "automation/folded_name.h"
#include "client/usage_error.h"

namespace tallyra::client {
namespace {

using automation::Value;

template <class Number>
std::optional<Number> parse_whole(std::string_view text) {
  if (!text.empty() && text.front() == '+') {
    text.remove_prefix(1);
    if (!text.empty() && text.front() == '-') return std::nullopt;
  }
  Number number{};
  const char* const end = text.data() + text.size();
  const auto [stopped, error] = std::from_chars(text.data(), end, number);
  if (error != std::errc{} || stopped != end) return std::nullopt;
  return number;
}

std::optional<Value> double_value(std::string_view text) {
  const auto number = parse_whole<double>(text);
  if (!number || !std::isfinite(*number)) return std::nullopt;
  return Value(*number);
}

std::optional<Value> integer_value(std::string_view text) {
  const auto number = parse_whole<std::int32_t>(text);
  if (!number) return std::nullopt;
  return Value(*number);
}

std::optional<Value> date_value(std::string_view text) {
  const auto date = automation::parse_date(text);
  if (!date) return std::nullopt;
  return Value(*date);
}

std::optional<Value> boolean_value(std::string_view text) {
  if (automation::equals_folded(text, "true")) return Value(true);
  if (automation::equals_folded(text, "false")) return Value(false);
  return std::nullopt;
}

std::optional<Value> text_value(std::string_view text) {
  return Value(text);
}

template <class Kind>
std::optional<Value> bare(std::string_view text) {
  if (!text.empty()) return std::nullopt;
  if constexpr (std::is_void_v<Kind>)
    return Value();
  else
    return Value(Kind{});
}

struct TypeMark {
  std::string_view mark;
  std::optional<Value> (*parse)(std::string_view);
  std::string_view expected;
};

constexpr TypeMark type_marks[] = {
    {"t:", text_value, ""},
    {"n:", double_value, "a number such as n:12.5 or n:-3"},
    {"i:", integer_value, "a whole number from -2147483648 to 2147483647, such as i:3"},
    {"d:", date_value, "a date such as d:2024/01/31 or 'd:2024/01/31 14:05:09'"},
    {"b:", boolean_value, "b:true or b:false"},
    {"null:", bare<automation::Null>, "null: alone, with nothing behind it"},
    {"empty:", bare<void>, "empty: alone, with nothing behind it"},
    {"missing:", bare<automation::Missing>, "missing: alone, with nothing behind it"},
};

}  // namespace

Value parse_typed_value(std::string_view word) {
  for (const auto& type : type_marks) {
    if (!word.starts_with(type.mark)) continue;
    if (auto value = type.parse(word.substr(type.mark.size()))) return *std::move(value);
    throw UsageError("'" + std::string(word) + "' is no valid value: write " + std::string(type.expected) +
                     ", or t:" + std::string(word) + " for this very text");
  }
  return Value(word);
}

}  // namespace tallyra::client
