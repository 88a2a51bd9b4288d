#pragma once

#include <ostream>
#include <string>
#include <type_traits>

#include "automation/convert.h"
#include "automation/value.h"

// How values read in the output of a failed test: kind and content, since equal values are of one kind. Part
// of the headers that every test has, so that all of a program's tests print alike.
namespace tallyra::automation {

template <class T>
constexpr const char* kind_of_number() {
  if constexpr (std::is_same_v<T, bool>) return "boolean ";
  if constexpr (std::is_same_v<T, std::uint8_t>) return "byte ";
  if constexpr (std::is_same_v<T, std::int16_t>) return "int16 ";
  if constexpr (std::is_same_v<T, std::int32_t>) return "int32 ";
  if constexpr (std::is_same_v<T, std::int64_t>) return "int64 ";
  if constexpr (std::is_same_v<T, float>) return "single ";
  if constexpr (std::is_same_v<T, double>) return "double ";
  if constexpr (std::is_same_v<T, Currency>) return "currency ";
  if constexpr (std::is_same_v<T, Decimal>) return "decimal ";
  if constexpr (std::is_same_v<T, Date>) return "date ";
}

inline std::string printed(const Value& value) {
  return value.visit([&](const auto& content) -> std::string {
    using T = std::decay_t<decltype(content)>;
    if constexpr (std::is_same_v<T, std::monostate>)
      return "Empty";
    else if constexpr (std::is_same_v<T, Null>)
      return "Null";
    else if constexpr (std::is_same_v<T, Missing>)
      return "missing";
    else if constexpr (std::is_same_v<T, Object>)
      return content ? "object" : "Nothing";
    else if constexpr (std::is_same_v<T, Opaque>)
      return content ? std::string(content->kind()) : "no data";
    else if constexpr (std::is_same_v<T, std::string>)
      return "text '" + content + "'";
    else
      return kind_of_number<T>() + to_text(value);
  });
}

inline void PrintTo(const Value& value, std::ostream* out) {
  *out << printed(value);
}

}  // namespace tallyra::automation
