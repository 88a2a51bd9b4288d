#include "company/generator.h"

#include "company/database.h"
#include "company/database_files.h"
#include "company/ledger.h"
#include "company/masters.h"
#include "company/schema_script.h"
#include "company/settings.h"
#include "company/stocktaking.h"
#include "schema/script.h"

namespace tallyra::company {
namespace {

void check_range(const char* what, int value, int low, int high) {
  if (value < low || value > high) {
    throw Refusal(std::string(what) + " must be from " + std::to_string(low) + " to " + std::to_string(high) +
                  ", not " + std::to_string(value));
  }
}

void check(const Options& options) {
  check_range("departments", options.departments, min_departments, max_departments);
  check_range("parts", options.parts, min_parts, max_parts);
  check_range("lines", options.lines, min_lines, max_lines);
  check_range("months", options.months, min_months, max_months);
}

void fill(const Options& options, Database& database, const Progress& progress) {
  Random random(options.seed);
  const Masters masters = make_masters(options, random);
  const Day entered = Day{options.start / std::chrono::day{1}} - std::chrono::days{30};
  write_masters(masters, entered, database);
  write_settings(masters, entered, database);
  Ledger ledger(masters, options, random, database);
  const Generation generation{masters, random, ledger, database};
  write_movements(options, generation, progress);
  write_stocktaking(generation);
}

std::vector<TableCount> count_rows(Database& database) {
  std::vector<TableCount> counts;
  for (const auto& table :
       database.query("SELECT name FROM sqlite_master WHERE type='table' AND name NOT LIKE "
                      "'sqlite~_%' ESCAPE '~' ORDER BY name")) {
    counts.push_back({table[0], database.query("SELECT COUNT(*) FROM " + table[0])[0][0]});
  }
  return counts;
}

}  // namespace

std::vector<TableCount> generate(const Options& options, const Progress& progress) {
  check(options);
  const auto script = options.schema.empty() ? statements_of(schema::create_script(schema::Engine::sqlite))
                                             : read_schema(options.schema);
  GrowingFile file(options.database, options.replace);
  std::vector<TableCount> counts;
  {
    Database database(file.path());
    // Nobody else sees the growing file, so it needs neither a journal nor to reach the disk row by row. What
    // the script says about the journal comes last.
    database.execute("PRAGMA journal_mode=OFF");
    database.execute("PRAGMA synchronous=OFF");
    database.execute("PRAGMA cache_size=-131072");
    database.begin();
    std::string journal_mode;
    for (const std::string& statement : script) {
      if (statement.starts_with("PRAGMA journal_mode")) {
        journal_mode = statement;
      } else if (!creates_index(statement)) {
        database.execute(statement);
      }
    }
    fill(options, database, progress);
    for (const std::string& statement : script) {
      if (creates_index(statement)) database.execute(statement);
    }
    database.commit();
    counts = count_rows(database);
    if (!journal_mode.empty()) database.execute(journal_mode);
  }
  file.put_in_place();
  return counts;
}

}  // namespace tallyra::company
