#pragma once

#include <string>

#include "bench/comparison.h"

namespace tallyra::bench {

// Rounds of Insert, Read, Update and Delete of a shipping note, each call on a connection of its own.
Scenario record_maintenance(int rounds, const std::string& schema);

}  // namespace tallyra::bench
