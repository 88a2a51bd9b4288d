#include "automation/convert.h"

#include <cmath>
#include <limits>
#include <type_traits>

#include "automation/error.h"
#include "automation/folded_name.h"
#include "automation/number_text.h"

namespace tallyra::automation {
namespace {

template <class T>
constexpr bool is_integer = std::is_integral_v<T> && !std::is_same_v<T, bool>;

Value default_of(const Object& object) {
  return object.invoke(default_member, Access::read, {});
}

// An object whose default member is itself an object would lead in circles: one step is all a caller needs.
Value plain_value(const Object& object) {
  Value value = default_of(object);
  if (value.is_object()) throw Error(error_number::no_such_member);
  return value;
}

const Value& number_in(const Opaque& content) {
  const Value* number = content->number();
  if (!number) throw Error(error_number::type_mismatch);
  return *number;
}

void append_text(std::string& out, const Value& value) {
  value.visit([&](const auto& content) {
    using T = std::remove_cvref_t<decltype(content)>;
    if constexpr (std::is_same_v<T, std::monostate>) {
    } else if constexpr (std::is_same_v<T, std::string>) {
      out += content;
    } else if constexpr (std::is_same_v<T, Null>) {
      throw Error(error_number::invalid_null);
    } else if constexpr (std::is_same_v<T, Missing>) {
      throw Error(error_number::type_mismatch);
    } else if constexpr (std::is_same_v<T, Opaque>) {
      append_text(out, number_in(content));
    } else if constexpr (std::is_same_v<T, bool>) {
      out += content ? "True" : "False";
    } else if constexpr (is_integer<T>) {
      out += std::to_string(content);
    } else if constexpr (std::is_floating_point_v<T>) {
      append_number(out, content);
    } else if constexpr (std::is_same_v<T, Currency> || std::is_same_v<T, Decimal>) {
      content.append_text(out);
    } else if constexpr (std::is_same_v<T, Date>) {
      append_date(out, content);
    } else {
      append_text(out, plain_value(content));
    }
  });
}

double round_half_even(double value) {
  const double floor = std::floor(value);
  const double rest = value - floor;
  if (rest < 0.5) return floor;
  if (rest > 0.5) return floor + 1;
  return std::fmod(floor, 2) == 0 ? floor : floor + 1;
}

// "&HFFFF" is -1 as a 16-bit integer: a radix text gives the bits of the target, not a number to be ranged.
template <class Integer>
bool radix_bits(const Value& value, Integer& result) {
  const auto* text = value.get_if<std::string>();
  if (!text || text->find('&') == std::string::npos) return false;
  const double number = parse_number(*text);
  using Bits = std::make_unsigned_t<Integer>;
  if (number > std::numeric_limits<Bits>::max()) throw Error(error_number::overflow);
  result = static_cast<Integer>(static_cast<Bits>(number));
  return true;
}

// Money and decimals keep digits that a double would lose, also the one that decides about a half.
double rounded_exactly(std::string text) {
  const auto point = text.find('.');
  if (point == std::string::npos) return parse_number(text);
  const std::string_view fraction = std::string_view(text).substr(point + 1);
  const bool half = fraction == "5";
  const bool odd = point > 0 && (text[point - 1] - '0') % 2 != 0;
  const bool away = half ? odd : fraction.front() >= '5';
  const double whole = parse_number(std::string_view(text).substr(0, point));
  return away ? whole + (text.front() == '-' ? -1 : 1) : whole;
}

double rounded(const Value& value) {
  if (value.holds<Currency>() || value.holds<Decimal>()) return rounded_exactly(to_text(value));
  return round_half_even(to_double(value));
}

template <class Integer>
Integer to_integer(const Value& value) {
  if (const auto* same = value.get_if<Integer>()) return *same;
  Integer bits{};
  if (radix_bits(value, bits)) return bits;
  const double whole = rounded(value);
  if (!(whole >= std::numeric_limits<Integer>::min() && whole <= std::numeric_limits<Integer>::max()))
    throw Error(error_number::overflow);
  return static_cast<Integer>(whole);
}

}  // namespace

std::string to_text(const Value& value) {
  std::string text;
  append_text(text, value);
  return text;
}

void append_concatenated(std::string& out, const Value& value) {
  if (!value.is_null()) append_text(out, value);
}

double to_double(const Value& value) {
  return value.visit([](const auto& content) -> double {
    using T = std::remove_cvref_t<decltype(content)>;
    if constexpr (std::is_same_v<T, std::monostate>) {
      return 0;
    } else if constexpr (std::is_same_v<T, Null>) {
      throw Error(error_number::invalid_null);
    } else if constexpr (std::is_same_v<T, Missing>) {
      throw Error(error_number::type_mismatch);
    } else if constexpr (std::is_same_v<T, Opaque>) {
      return to_double(number_in(content));
    } else if constexpr (std::is_same_v<T, bool>) {
      return content ? -1 : 0;
    } else if constexpr (std::is_arithmetic_v<T>) {
      return static_cast<double>(content);
    } else if constexpr (std::is_same_v<T, Currency> || std::is_same_v<T, Decimal>) {
      return content.to_double();
    } else if constexpr (std::is_same_v<T, Date>) {
      return content.serial;
    } else if constexpr (std::is_same_v<T, std::string>) {
      return parse_number(content);
    } else {
      return to_double(plain_value(content));
    }
  });
}

float to_single(const Value& value) {
  if (const auto* same = value.get_if<float>()) return *same;
  const double number = to_double(value);
  if (std::fabs(number) > std::numeric_limits<float>::max() && !std::isinf(number))
    throw Error(error_number::overflow);
  return static_cast<float>(number);
}

std::int16_t to_int16(const Value& value) {
  return to_integer<std::int16_t>(value);
}

std::int32_t to_int32(const Value& value) {
  return to_integer<std::int32_t>(value);
}

bool to_boolean(const Value& value) {
  if (const auto* text = value.get_if<std::string>()) {
    if (equals_folded(*text, "True") || equals_folded(*text, "#TRUE#")) return true;
    if (equals_folded(*text, "False") || equals_folded(*text, "#FALSE#")) return false;
  }
  return to_double(value) != 0;
}

Date to_date(const Value& value) {
  if (const auto* date = value.get_if<Date>()) return *date;
  if (const auto* object = value.get_if<Object>()) return to_date(plain_value(*object));
  if (const auto* text = value.get_if<std::string>()) {
    const auto date = parse_date(*text);
    if (!date) throw Error(error_number::type_mismatch);
    return *date;
  }
  const Date date{to_double(value)};
  civil_time(date);
  return date;
}

Object to_object(const Value& value) {
  const auto* object = value.get_if<Object>();
  if (!object) throw Error(error_number::object_required);
  return *object;
}

void append_magnitude(std::string& out, const Value& value) {
  if (value.is_null()) return;
  if (!value.holds<Currency>() && !value.holds<Decimal>()) {
    append_number(out, std::fabs(to_double(value)));
    return;
  }
  const std::string text = to_text(value);
  out.append(text, text.front() == '-' ? 1 : 0);
}

bool equals_number(const Value& value, double number) {
  return !value.is_null() && to_double(value) == number;
}

bool exceeds_number(const Value& value, double number) {
  return !value.is_null() && to_double(value) > number;
}

std::string trimmed(std::string_view text) {
  const auto first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return std::string(text.substr(first, text.find_last_not_of(' ') - first + 1));
}

}  // namespace tallyra::automation
