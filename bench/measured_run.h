#pragma once

#include <cstdint>
#include <functional>
#include <vector>

namespace tallyra::bench {

struct Measurement {
  double seconds = 0;
  double peak_megabytes = 0;
  std::uint64_t count = 0;
};

// Runs the work in a process of its own, so that its peak memory is its own too. The work returns a count of
// whatever it counts; only the work is timed. Throws std::runtime_error with the work's message when it
// fails.
Measurement measured_run(const std::function<std::uint64_t()>& work);

// The most memory that this process has had at a time.
std::uint64_t peak_kilobytes();

double median(std::vector<double> values);

}  // namespace tallyra::bench
