#pragma once

#include <cstddef>
#include <cstdint>
#include <iterator>

namespace tallyra::company {

// Deterministic random numbers (SplitMix64). Generator and distributions are written out because those of the
// standard library may differ from one library to the next, and a seed must mean the same company everywhere.
class Random {
 public:
  explicit Random(std::uint64_t seed) : state_(seed) {}

  // Uniform in [0, limit); limit must be positive.
  int below(int limit) {
    return static_cast<int>(((next() >> 32) * static_cast<std::uint64_t>(limit)) >> 32);
  }

  // Uniform in [low, high], both ends included.
  int between(int low, int high) { return low + below(high - low + 1); }

  bool chance(int percent) { return below(100) < percent; }

  template <typename Range>
  decltype(auto) pick(Range& range) {
    return range[static_cast<std::size_t>(below(static_cast<int>(std::size(range))))];
  }

 private:
  std::uint64_t next() {
    state_ += 0x9E3779B97F4A7C15U;
    std::uint64_t mixed = state_;
    mixed = (mixed ^ (mixed >> 30)) * 0xBF58476D1CE4E5B9U;
    mixed = (mixed ^ (mixed >> 27)) * 0x94D049BB133111EBU;
    return mixed ^ (mixed >> 31);
  }

  std::uint64_t state_;
};

}  // namespace tallyra::company
