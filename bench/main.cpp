#include <CLI/CLI.hpp>
#include <cstdio>
#include <exception>
#include <string>
#include <vector>

#include "bench/comparison.h"
#include "bench/material_requirement.h"
#include "bench/month_close.h"
#include "bench/record_maintenance.h"
#include "bench/stock_check.h"
#include "server/local_classes.h"
#include "standins/ado/local_classes.h"
#include "standins/corvane/local_classes.h"
#include "standins/lexbank/local_classes.h"

namespace {

using tallyra::bench::Comparison;
using tallyra::bench::Scenario;

void print_head() {
  std::printf("%-16s %-24s %9s %9s %6s %6s %9s %9s %8s %9s %9s\n", "work", "size", "component", "replay",
              "ratio", "limit", "rows", "rows/s", "stmts", "peak", "replay's");
}

bool exceeds_limit(const Scenario& scenario, const Comparison& result) {
  return scenario.limit && result.ratio > *scenario.limit;
}

void print(const Scenario& scenario, const Comparison& result) {
  char limit[16] = "";
  if (scenario.limit) std::snprintf(limit, sizeof limit, "%.2f", *scenario.limit);
  std::printf("%-16s %-24s %7.3f s %7.3f s %6.3f %6s %9llu %9.0f %8llu %6.1f MB %6.1f MB%s\n",
              scenario.name.c_str(), scenario.size.c_str(), result.component_seconds, result.replay_seconds,
              result.ratio, limit, static_cast<unsigned long long>(result.rows), result.rows_per_second,
              static_cast<unsigned long long>(result.statements), result.component_megabytes,
              result.replay_megabytes, exceeds_limit(scenario, result) ? "  above the limit" : "");
  std::fflush(stdout);
}

}  // namespace

int main(int argc, char** argv) {
  CLI::App app{
      "Holds the component against a replay of its own statements through plain ODBC: ratio of the medians "
      "of\n"
      "interleaved runs on copies of one database, rows per second and peak memory. Ends with 1 when a ratio "
      "is above its limit."};
  std::string schema;
  std::string folder = "build/bench-data";
  bool quick = false;
  int rounds = 7;
  app.add_option("--schema", schema, "create script of the tables")->required();
  app.add_option("--folder", folder, "where the databases are made, and removed again")
      ->capture_default_str();
  app.add_option("--rounds", rounds, "runs of each kind")->capture_default_str();
  app.add_flag("--quick", quick, "only the smaller sizes");
  CLI11_PARSE(app, argc, argv);

  tallyra::server::register_classes();
  tallyra::standins::ado::register_classes();
  tallyra::standins::corvane::register_classes();
  tallyra::standins::lexbank::register_classes();

  using namespace tallyra::bench;
  std::vector<Scenario> scenarios{month_close(5, 200, 5'000, schema),
                                  record_maintenance(quick ? 200 : 2'000, schema),
                                  stock_check(20, 2'000, 200'000, 3, schema), material_requirement(schema)};
  if (!quick) {
    scenarios.push_back(month_close(20, 2'000, 200'000, schema));
    // The same movements a month, with five months of history.
    scenarios.push_back(stock_check(20, 2'000, 333'333, 5, schema));
    scenarios.push_back(stock_check(50, 20'000, 1'000'000, 3, schema));
  }
  try {
    print_head();
    bool within_limits = true;
    for (auto& scenario : scenarios) {
      scenario.rounds = rounds;
      const Comparison result = compare(scenario, folder);
      print(scenario, result);
      within_limits = within_limits && !exceeds_limit(scenario, result);
    }
    return within_limits ? 0 : 1;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "tallyra-bench: %s\n", error.what());
    return 1;
  }
}
