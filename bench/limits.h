#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "bench/comparison.h"
#include "bench/growth.h"
#include "bench/scenario.h"

namespace tallyra::bench {

// What the component's ratio to a replay must not exceed.
struct Limit {
  std::string_view work;
  std::string_view size;
  Against against;
  std::optional<double> before;  // what was measured when statements only went through ODBC
  double now;
  double goal;
};

// Which of the two a run is held to.
enum class Hold { now, goal };

// Null where there is none.
const Limit* limit_of(std::string_view work, std::string_view size, Against against);
double value_of(const Limit& limit, Hold hold);

// What is broken, a line for each; nothing when all is kept. A ratio is broken when both that of the medians
// and that of the shortest runs are above the limit.
std::vector<std::string> broken_limits(const Scenario& scenario, const Comparison& result, Hold hold);
std::vector<std::string> broken_limits(const Growth& growth);
std::vector<std::string> broken_limits(std::uint64_t kilobytes_over_calls);

}  // namespace tallyra::bench
