#include "bench/comparison.h"

#include <algorithm>
#include <filesystem>

#include "bench/statement_log.h"

namespace tallyra::bench {

void Series::add(const Measurement& run) {
  seconds_.push_back(run.seconds);
  megabytes_.push_back(run.peak_megabytes);
}

double Series::least_seconds() const {
  return *std::min_element(seconds_.begin(), seconds_.end());
}

double Comparison::ratio(Against against) const {
  return component.median_seconds() / replays.at(against).median_seconds();
}

double Comparison::least_ratio(Against against) const {
  return component.least_seconds() / replays.at(against).least_seconds();
}

Comparison compare(const Scenario& scenario, const std::string& folder, Time wanted) {
  const Time time = scenario.on_server ? Time::passed : wanted;
  const std::string log = std::filesystem::path(folder) / "statements.log";
  const auto company = scenario.company();
  const std::string connection_string = company->connection_string();
  Comparison result;
  company->renew();
  measured_run([&] {
    const StatementLog recording(log);
    return scenario.run(connection_string);
  });

  std::vector<std::function<void()>> kinds{[&] {
    const Measurement run = measured_run([&] { return scenario.run(connection_string); }, time);
    result.component.add(run);
    result.rows = run.count;
  }};
  for (const Replay& way : scenario.replays)
    kinds.emplace_back([&result, &log, &way, time] {
      const Measurement run = measured_run([&] { return replay(log, way.connect()); }, time);
      result.replays[way.against].add(run);
      result.statements = run.count;
    });
  for (int round = 0; round < scenario.rounds; ++round) {
    for (const auto& run_one : kinds) {
      company->renew();
      run_one();
    }
    // Who follows whom stays; who is first changes, so that all see what happens at a round's beginning.
    std::rotate(kinds.begin(), kinds.begin() + 1, kinds.end());
  }
  std::filesystem::remove(log);
  return result;
}

}  // namespace tallyra::bench
