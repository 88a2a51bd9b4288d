#pragma once

#include <string>
#include <vector>

#include "client/configuration.h"
#include "client/console.h"
#include "client/exit_status.h"

namespace tallyra::client {

// Carries out "CLASS MEMBER ..." and prints what came of it. Throws UsageError and automation::Error.
ExitStatus run_raw_call(const std::vector<std::string>& words, const Console& console,
                        const Environment& environment);

}  // namespace tallyra::client
