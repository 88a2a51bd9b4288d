#pragma once

#include <string>
#include <vector>

#include "client/configuration.h"
#include "client/console.h"
#include "client/exit_status.h"

namespace tallyra::client {

// The whole program but for the start: reads the words, carries out the verb or the call, writes the result
// or what was wrong. Nothing is thrown.
ExitStatus run_client(const std::vector<std::string>& words, const Console& console,
                      const Environment& environment);

}  // namespace tallyra::client
