#pragma once

#include <string>

#include "bench/comparison.h"

namespace tallyra::bench {

// The close of the second of two months, of a company of this size.
Scenario month_close(int departments, int parts, int lines, const std::string& schema);

}  // namespace tallyra::bench
