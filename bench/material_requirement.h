#pragma once

#include <string>

#include "bench/comparison.h"

namespace tallyra::bench {

// How much of a screw a sales order requires whose bill of materials has five levels and 10,000 lines.
Scenario material_requirement(const std::string& schema);

}  // namespace tallyra::bench
