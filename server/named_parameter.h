#pragma once

#include <string_view>
#include <variant>

namespace tallyra::server {

// What the C++ signature does not tell of a parameter.
struct NamedParameter {
  std::string_view name;
  std::string_view help;
  // The number or the text that an optional one is when it is left out; none of them: it is required.
  std::variant<std::monostate, int, std::string_view> when_omitted = {};
};

}  // namespace tallyra::server
