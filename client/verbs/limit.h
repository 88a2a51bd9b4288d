#pragma once

#include <cstddef>

#include "client/verbs/context.h"

namespace tallyra::client {

// How many rows --limit asks for, `usual` when it is not said; 0 means all. Throws UsageError for what is no
// whole number.
std::size_t limit_of(const VerbContext& context, std::size_t usual);

}  // namespace tallyra::client
