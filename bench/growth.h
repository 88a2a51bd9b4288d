#pragma once

#include <string>

#include "bench/comparison.h"

namespace tallyra::bench {

// How many times as long the work takes in a company of which one thing is twice as many.
struct Growth {
  std::string of;
  std::string size;  // of the larger company
  double component;
  double odbc;      // the replay through ODBC
  double prepared;  // the prepared replay through the engine's own library
};

Growth growth_between(const std::string& of, const std::string& size, const Comparison& once,
                      const Comparison& twice);

}  // namespace tallyra::bench
