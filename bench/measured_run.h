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

// What seconds are taken of: all that pass, or only those in which a processor worked for the process. The
// latter tell more on a busy machine, as long as nothing waits and no other process does the work.
enum class Time { passed, processor };

// Runs the work in a process of its own, so that its peak memory is its own too. The work returns a count of
// whatever it counts; only the work is timed. Throws std::runtime_error with the work's message when it
// fails.
Measurement measured_run(const std::function<std::uint64_t()>& work, Time time = Time::passed);

// The most memory that this process has had at a time.
std::uint64_t peak_kilobytes();

double median(std::vector<double> values);

}  // namespace tallyra::bench
