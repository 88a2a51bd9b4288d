#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace tallyra::bench {

// Work of the component on a database, to be held against a replay of its own statements.
struct Scenario {
  std::string name;
  std::string size;
  // Makes the database file at a path, with everything that belongs to the work's beginning.
  std::function<void(const std::string& database)> prepare;
  // Does the work and returns the rows it has written or handled.
  std::function<std::uint64_t(const std::string& database)> run;
  int rounds = 7;
  // What the ratio must not exceed; none where a run is so short that the disk decides.
  std::optional<double> limit = {};
};

struct Comparison {
  double component_seconds;
  double replay_seconds;
  double ratio;
  double rows_per_second;
  double component_megabytes;
  double replay_megabytes;
  std::uint64_t rows;
  std::uint64_t statements;
};

// Records the statements of one run, then runs component and replay in turn, each on a fresh copy of the
// database, and takes the medians. Files are kept below `folder`.
Comparison compare(const Scenario& scenario, const std::string& folder);

}  // namespace tallyra::bench
