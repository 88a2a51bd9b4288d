#pragma once

#include <string>

#include "bench/comparison.h"

namespace tallyra::bench {

// The approval of the sample company's stocktaking, which counts a quarter of the parts, with movements of so
// many months around it.
Scenario stock_check(int departments, int parts, int lines, int months, const std::string& schema);

}  // namespace tallyra::bench
