#pragma once

#include <cstdint>

#include "automation/error.h"

namespace tallyra::automation {

// The number of the Error that a use ends in; 0 when it ends in none.
template <class Use>
std::int32_t error_of(const Use& use) {
  try {
    use();
  } catch (const Error& error) {
    return error.number();
  }
  return 0;
}

}  // namespace tallyra::automation
