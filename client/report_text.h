#pragma once

#include <string>

#include "client/call_run.h"

namespace tallyra::client {

// What came of a call, for the eye: result, if there is one, and error fields, then the arguments that came
// back, then the returned fields, as tables whose columns stand straight also with wide characters.
std::string report_text(const Outcome& outcome);

}  // namespace tallyra::client
