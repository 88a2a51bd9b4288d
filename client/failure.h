#pragma once

#include "automation/error.h"
#include "client/console.h"

namespace tallyra::client {

// The line on the error output for an error that left an object.
void tell_failure(const automation::Error& error, const Console& console);

}  // namespace tallyra::client
