#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "bench/measured_run.h"
#include "bench/scenario.h"

namespace tallyra::bench {

// The runs of one kind.
class Series {
 public:
  void add(const Measurement& run);
  double median_seconds() const { return median(seconds_); }
  double least_seconds() const;
  double median_megabytes() const { return median(megabytes_); }

 private:
  std::vector<double> seconds_;
  std::vector<double> megabytes_;
};

struct Comparison {
  Series component;
  std::map<Against, Series> replays;
  std::uint64_t rows = 0;
  std::uint64_t statements = 0;

  // Of the medians, the component's to the replay's.
  double ratio(Against against) const;
  // Of the shortest runs, which a busy machine disturbs least.
  double least_ratio(Against against) const;
  double rows_per_second() const { return static_cast<double>(rows) / component.median_seconds(); }
};

// Records the statements of one run, then runs component and replays in turn, each on a company that is as it
// was before the work. The log of the statements is kept in `folder` meanwhile.
Comparison compare(const Scenario& scenario, const std::string& folder, Time wanted = Time::passed);

}  // namespace tallyra::bench
