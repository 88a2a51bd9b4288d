#pragma once

#include <string>

#include "client/usage_error.h"

namespace tallyra::client {

// The text of the UsageError that an action throws, or words that say that it threw none.
template <class Action>
std::string usage_error_text(const Action& action) {
  try {
    action();
  } catch (const UsageError& error) {
    return error.what();
  }
  return "(no usage error)";
}

}  // namespace tallyra::client
