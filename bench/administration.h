#pragma once

#include <string>
#include <vector>

#include "bench/companies.h"
#include "bench/comparison.h"
#include "bench/scenario.h"

namespace tallyra::bench {

// A verb of the console client that looks at a close, and that close: looking takes less time than closing.
struct Look {
  Scenario close;
  Scenario verb;  // without replays
};

// check before the close, verify and report after it. The companies must outlive them.
std::vector<Look> looks(Companies& companies, const CompanySize& size);

// How long a verb takes in units of the close.
struct LookShare {
  std::string verb;
  std::string size;
  double seconds = 0;
  double of_medians = 0;
  double of_shortest = 0;  // of the shortest runs of both
};

LookShare share_of(const Look& look, const Comparison& close, const Comparison& verb);

// What is broken, as the other limits have it.
std::vector<std::string> broken_limits(const LookShare& share);

}  // namespace tallyra::bench
