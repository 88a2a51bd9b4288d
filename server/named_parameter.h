#pragma once

#include <string>
#include <string_view>
#include <variant>

#include "automation/value.h"

namespace tallyra::server {

// What the C++ signature does not tell of a parameter.
struct NamedParameter {
  std::string_view name;
  std::string_view help;
  // The number or the text that an optional one is when it is left out; none of them: it is required.
  std::variant<std::monostate, int, std::string_view> when_omitted = {};

  automation::Value omitted() const {
    if (const auto* number = std::get_if<int>(&when_omitted)) return *number;
    if (const auto* text = std::get_if<std::string_view>(&when_omitted)) return std::string(*text);
    return automation::Missing{};
  }
};

}  // namespace tallyra::server
