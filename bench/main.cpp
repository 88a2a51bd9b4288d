#include <CLI/CLI.hpp>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "bench/document.h"
#include "bench/place.h"
#include "bench/plan.h"
#include "bench/runner.h"
#include "server/local_classes.h"
#include "standins/ado/local_classes.h"
#include "standins/corvane/local_classes.h"
#include "standins/lexbank/local_classes.h"

namespace {

using namespace tallyra::bench;

constexpr const char* description =
    "Holds the component against replays of its own statements: through plain ODBC, through the engine's "
    "own\n"
    "library as text, and through it with every shape of text prepared once; a close on a PostgreSQL server "
    "of\n"
    "its own against the texts through that server's library. Prints seconds, the ratios of the\n"
    "medians of interleaved runs on copies of one database, rows per second and peak memory. Ends with 1 "
    "when\n"
    "a limit is broken, in two measurings. The databases are made in memory: in the folder that\n"
    "TALLYRA_BENCH_FOLDER names or in /dev/shm, and where neither will do, nothing is measured.";

constexpr int usage_error = 2;

struct Options {
  std::string schema;
  std::string folder;
  std::string only;
  std::string document;
  bool quick = false;
  bool goals = false;
  bool processor_time = false;
  int rounds = 0;
};

void declare(CLI::App& app, Options& options) {
  app.add_option("--schema", options.schema, "create script of the tables")->required();
  app.add_option("--folder", options.folder, "another folder; on a disk nothing is judged");
  app.add_option("--rounds", options.rounds, "runs of each kind, in place of each work's own number");
  app.add_option("--only", options.only, "only work whose name and size contain this");
  app.add_flag("--quick", options.quick, "only the smaller sizes");
  app.add_flag("--goals", options.goals, "hold to what is to be reached, not to what is");
  app.add_flag("--processor-time", options.processor_time, "seconds of the processor, for a busy machine");
  app.add_option("--write-readme", options.document, "write the figures into this document");
}

std::optional<Place> chosen_place(const Options& options) {
  if (!options.folder.empty()) {
    std::filesystem::create_directories(options.folder);
    return place_at(options.folder);
  }
  std::vector<Place> places;
  if (const char* const named = std::getenv("TALLYRA_BENCH_FOLDER")) places.push_back(place_at(named));
  places.push_back(place_at("/dev/shm"));
  return memory_place(places, options.quick ? quick_plan_bytes : full_plan_bytes);
}

void narrow(Plan& plan, const Options& options) {
  std::erase_if(plan.scenarios, [&](const Scenario& scenario) {
    return (scenario.work + ", " + scenario.size).find(options.only) == std::string::npos;
  });
  std::erase_if(plan.doubled, [&](const Doubled& doubled) {
    return ("growth in " + doubled.what).find(options.only) == std::string::npos;
  });
  std::erase_if(plan.looks, [&](const Look& look) {
    return (look.verb.work + ", " + look.verb.size).find(options.only) == std::string::npos;
  });
  if (std::string("memory over record calls").find(options.only) == std::string::npos)
    plan.calls_for_memory = 0;
  for (Scenario& scenario : plan.scenarios)
    if (options.rounds > 0) scenario.rounds = options.rounds;
  for (Doubled& doubled : plan.doubled)
    if (options.rounds > 0) doubled.once.rounds = doubled.twice.rounds = options.rounds;
  for (Look& look : plan.looks)
    if (options.rounds > 0) look.close.rounds = look.verb.rounds = options.rounds;
}

void leave_out_servers(Plan& plan) {
  for (const Scenario& scenario : plan.scenarios)
    if (scenario.on_server)
      std::printf("No PostgreSQL server is installed: %s, %s is left out.\n", scenario.work.c_str(),
                  scenario.size.c_str());
  std::erase_if(plan.scenarios, [](const Scenario& scenario) { return scenario.on_server; });
}

Runner::Terms terms_of(const Options& options, const Place& place) {
  return {options.goals ? Hold::goal : Hold::now, options.processor_time ? Time::processor : Time::passed,
          place.in_memory};
}

int measure(const Options& options, const Place& place) {
  if (!place.in_memory) std::printf("On a disk, in %s: nothing is judged.\n", place.folder.c_str());
  const WorkFolder folder(place.folder);
  Companies companies(folder.path(), options.schema);
  ServerCompanies on_server(companies, folder.path());
  Plan plan = options.quick ? quick_plan(companies, on_server) : full_plan(companies, on_server);
  narrow(plan, options);
  if (!ServerCompanies::can_be_made()) leave_out_servers(plan);
  Runner runner(companies, folder.path(), terms_of(options, place));
  runner.run(plan);
  if (!options.document.empty()) write_figures(options.document, runner.figures().markdown());
  if (place.in_memory)
    std::printf(runner.broken() == 0 ? "All limits are kept.\n" : "Measurings that break their limits: %d.\n",
                runner.broken());
  return runner.broken() == 0 ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) try {
  CLI::App app{description};
  Options options;
  declare(app, options);
  CLI11_PARSE(app, argc, argv);
  const std::optional<Place> place = chosen_place(options);
  const bool whole =
      !options.quick && options.only.empty() && !options.processor_time && (!place || place->in_memory);
  if (!options.document.empty() && !whole) {
    std::fprintf(stderr, "tallyra-bench: only figures of a whole run in memory are written\n");
    return usage_error;
  }
  if (!place) {
    std::printf("No folder in memory has the room: nothing is measured, nothing is judged.\n");
    return 0;
  }
  tallyra::server::register_classes();
  tallyra::standins::ado::register_classes();
  tallyra::standins::corvane::register_classes();
  tallyra::standins::lexbank::register_classes();
  return measure(options, *place);
} catch (const std::exception& error) {
  std::fprintf(stderr, "tallyra-bench: %s\n", error.what());
  return 1;
}
