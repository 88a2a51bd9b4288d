#include "bench/comparison.h"

#include <filesystem>
#include <vector>

#include "bench/measured_run.h"
#include "bench/odbc_replay.h"
#include "bench/statement_log.h"

namespace tallyra::bench {
namespace {

namespace fs = std::filesystem;

// One path for all runs: the statements of the replay name it.
void fresh_copy(const fs::path& original, const fs::path& database) {
  for (const char* side : {"", "-wal", "-shm", ".keys", ".keys-wal", ".keys-shm", ".keys-journal"})
    fs::remove(database.string() + side);
  fs::copy_file(original, database);
}

}  // namespace

Comparison compare(const Scenario& scenario, const std::string& folder) {
  fs::create_directories(folder);
  const fs::path original = fs::path(folder) / "original.db";
  const fs::path database = fs::path(folder) / "work.db";
  const std::string log = fs::path(folder) / "statements.log";
  measured_run([&] {
    scenario.prepare(original);
    return 0;
  });

  fresh_copy(original, database);
  measured_run([&] {
    const StatementLog recording(log);
    return scenario.run(database);
  });

  std::vector<double> component_seconds;
  std::vector<double> replay_seconds;
  std::vector<double> component_memory;
  std::vector<double> replay_memory;
  Comparison result{};
  const auto run_component = [&] {
    fresh_copy(original, database);
    const Measurement run = measured_run([&] { return scenario.run(database); });
    component_seconds.push_back(run.seconds);
    component_memory.push_back(run.peak_megabytes);
    result.rows = run.count;
  };
  const auto run_replay = [&] {
    fresh_copy(original, database);
    const Measurement run = measured_run([&] { return replay(log); });
    replay_seconds.push_back(run.seconds);
    replay_memory.push_back(run.peak_megabytes);
    result.statements = run.count;
  };
  for (int round = 0; round < scenario.rounds; ++round) {
    // Who goes first changes, so that neither profits from what the other left in the caches.
    if (round % 2 == 0) {
      run_component();
      run_replay();
    } else {
      run_replay();
      run_component();
    }
  }
  result.component_seconds = median(component_seconds);
  result.replay_seconds = median(replay_seconds);
  result.ratio = result.component_seconds / result.replay_seconds;
  result.rows_per_second = static_cast<double>(result.rows) / result.component_seconds;
  result.component_megabytes = median(component_memory);
  result.replay_megabytes = median(replay_memory);
  fs::remove_all(folder);
  return result;
}

}  // namespace tallyra::bench
