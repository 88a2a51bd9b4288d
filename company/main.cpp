#ifdef _WIN32
#include <io.h>
#else
#include <unistd.h>
#endif

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdio>
#include <exception>

#include "company/generator.h"

namespace company = tallyra::samples::company;

namespace {

bool error_output_is_terminal() {
#ifdef _WIN32
  return _isatty(_fileno(stderr)) != 0;
#else
  return isatty(STDERR_FILENO) != 0;
#endif
}

void print_counts(const std::vector<company::TableCount>& counts) {
  std::size_t widest = 0;
  for (const auto& count : counts) widest = std::max(widest, count.table.size());
  std::printf("%-*s  %10s\n", static_cast<int>(widest), "table", "rows");
  for (const auto& count : counts) {
    std::printf("%-*s  %10s\n", static_cast<int>(widest), count.table.c_str(), count.rows.c_str());
  }
}

}  // namespace

int main(int argc, char** argv) {
  CLI::App app{
      "Creates a database with a made-up company: departments, parts, suppliers, orders and the stock\n"
      "documents of several months. The same options give the same content every time."};
  company::Options options;
  std::string start = "2024-01";
  app.add_option("--db", options.database, "database file to create")->required();
  app.add_option("--schema", options.schema, "create script of the tables")->required();
  app.add_option("--departments", options.departments, "number of departments, 2 to 50")
      ->capture_default_str();
  app.add_option("--parts", options.parts, "number of parts, 30 to 20000")->capture_default_str();
  app.add_option("--lines", options.lines, "number of movement lines, 100 to 1000000")->capture_default_str();
  app.add_option("--months", options.months, "number of months, 1 to 36")->capture_default_str();
  app.add_option("--start", start, "first month, as YYYY-MM")->capture_default_str();
  app.add_option("--seed", options.seed, "another number gives another company")->capture_default_str();
  app.add_flag("--force", options.replace, "replace an existing database and the files beside it");
  app.footer("Example:\n  tallyra-company --db company.db --schema schema/sqlite.sql --months 2");
  CLI11_PARSE(app, argc, argv);

  const bool on_terminal = error_output_is_terminal();
  const auto show_progress = [&](int lines) {
    if (on_terminal) std::fprintf(stderr, "\r%d of %d movement lines", lines, options.lines);
  };
  try {
    options.start = company::parse_month(start);
    const auto counts = company::generate(options, show_progress);
    if (on_terminal) std::fputs("\r\033[K", stderr);
    print_counts(counts);
    return 0;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%stallyra-company: %s\n", on_terminal ? "\r\033[K" : "", error.what());
    return 1;
  }
}
