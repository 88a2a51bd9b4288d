#include <cstdlib>

#include "client/platform/environment.h"

namespace tallyra::client {

std::optional<std::string> environment_variable(const std::string& name) {
  const char* const value = std::getenv(name.c_str());
  if (!value) return std::nullopt;
  return value;
}

}  // namespace tallyra::client
