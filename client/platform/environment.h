#pragma once

#include <optional>
#include <string>

namespace tallyra::client {

// A variable of the environment, in UTF-8; nothing when it is not set.
std::optional<std::string> environment_variable(const std::string& name);

}  // namespace tallyra::client
