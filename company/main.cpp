#ifdef _WIN32
#include <io.h>
#else
#include <unistd.h>
#endif

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdio>
#include <exception>

#include "company/database_copy.h"
#include "company/generator.h"
#include "company/schema_upgrade.h"
#include "standins/ado/local_classes.h"

namespace company = tallyra::company;

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

struct CommandLine {
  company::Options options;
  std::string start = "2024-01";
  bool schema_only = false;
  std::vector<std::string> copy;  // from, to
};

void declare(CLI::App& app, CommandLine& line) {
  company::Options& options = line.options;
  auto* const database = app.add_option(
      "--db", options.database, "database file to create; with --schema-only also a connection string");
  app.add_option("--schema", options.schema, "another create script of the tables than the built-in one");
  app.add_option("--departments", options.departments, "number of departments, 2 to 50")
      ->capture_default_str();
  app.add_option("--parts", options.parts, "number of parts, 30 to 20000")->capture_default_str();
  app.add_option("--lines", options.lines, "number of movement lines, 100 to 1000000")->capture_default_str();
  app.add_option("--months", options.months, "number of months, 1 to 36")->capture_default_str();
  app.add_option("--start", line.start, "first month, as YYYY-MM")->capture_default_str();
  app.add_option("--seed", options.seed, "another number gives another company")->capture_default_str();
  app.add_flag("--force", options.replace, "replace an existing database and the files beside it");
  auto* const schema_only = app.add_flag("--schema-only", line.schema_only,
                                         "create the tables, or bring them up to date, and leave the rest");
  app.add_option("--copy", line.copy,
                 "copy a whole SQLite database into an empty one of any engine, and compare both; files or "
                 "connection strings")
      ->expected(2)
      ->type_name("FROM TO")
      ->excludes(database)
      ->excludes(schema_only);
  app.callback([&line] {
    if (line.options.database.empty() && line.copy.empty()) throw CLI::RequiredError("--db or --copy");
  });
  app.footer(
      "Examples:\n"
      "  tallyra-company --db company.db --months 2\n"
      "  tallyra-company --schema-only --db \"DRIVER={PostgreSQL Unicode};Servername=db;Database=stock\"\n"
      "  tallyra-company --copy company.db \"DRIVER={PostgreSQL Unicode};Servername=db;Database=stock\"");
}

void generate(CommandLine& line, bool on_terminal) {
  const auto show_progress = [&](int lines) {
    if (on_terminal) std::fprintf(stderr, "\r%d of %d movement lines", lines, line.options.lines);
  };
  line.options.start = company::parse_month(line.start);
  const auto counts = company::generate(line.options, show_progress);
  if (on_terminal) std::fputs("\r\033[K", stderr);
  print_counts(counts);
}

void copy(const CommandLine& line, bool on_terminal) {
  const auto show_progress = [&](std::string_view doing, std::string_view table, std::uint64_t rows,
                                 std::uint64_t of) {
    if (!on_terminal) return;
    std::fprintf(stderr, "\r%s %s: %llu of %llu rows\033[K", std::string(doing).c_str(),
                 std::string(table).c_str(), static_cast<unsigned long long>(rows),
                 static_cast<unsigned long long>(of));
  };
  const auto counts = company::copy_database(line.copy.at(0), line.copy.at(1), show_progress);
  if (on_terminal) std::fputs("\r\033[K", stderr);
  print_counts(counts);
  std::puts("copied, compared row by row, the same");
}

void run(CommandLine& line, bool on_terminal) {
  if (!line.copy.empty()) return copy(line, on_terminal);
  if (!line.schema_only) return generate(line, on_terminal);
  std::printf("%s\n", company::upgrade_schema(line.options.database).c_str());
}

}  // namespace

int main(int argc, char** argv) {
  const bool on_terminal = error_output_is_terminal();
  try {
    CLI::App app{
        "Creates a database with a made-up company: departments, parts, suppliers, orders and the stock\n"
        "documents of several months. The same options give the same content every time. Or sees to the\n"
        "tables of a real one: creates them, brings them up to date, moves a whole database to a server."};
    CommandLine line;
    declare(app, line);
    CLI11_PARSE(app, argc, argv);

    tallyra::standins::ado::register_classes();
    run(line, on_terminal);
    return 0;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%stallyra-company: %s\n", on_terminal ? "\r\033[K" : "", error.what());
    return 1;
  }
}
