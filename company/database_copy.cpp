#include "company/database_copy.h"

#include <algorithm>
#include <filesystem>
#include <memory>

#include "automation/convert.h"
#include "company/client_tables.h"
#include "company/database_place.h"
#include "company/number_counters.h"
#include "company/options.h"
#include "company/schema_upgrade.h"
#include "company/source_check.h"
#include "company/table_comparison.h"
#include "company/table_rows.h"

namespace tallyra::company {
namespace {

// A table to move, where it is and where it goes: counters may stand elsewhere than the other tables.
struct Move {
  const schema::Table* table;
  const AdoConnection* from;
  const AdoConnection* to;
  std::vector<TablePart> parts;
};

class Copy {
 public:
  Copy(const CopyProgress& progress) : progress_(progress) {}

  void add(const schema::Table& table, const AdoConnection& from, const AdoConnection& to) {
    if (row_count(to, table.name) != 0) {
      throw Refusal("the target is not empty: its table " + std::string(table.name) + " has rows");
    }
    Move& move = moves_.emplace_back(Move{&table, &from, &to, parts_of(from, table)});
    for (const TablePart& part : move.parts) rows_ += part.rows;
  }

  void copy() {
    for_each_part("copying", [](const Move& move, const TablePart& part) {
      insert_rows(*move.to, *move.table, rows_of(*move.from, *move.table, part));
    });
  }

  // The first statements come before a server gets round to counting by itself.
  void gather_statistics() const {
    for (const Move& move : moves_) {
      const std::string statement = schema::gather_statistics(move.to->engine(), *move.table);
      if (!statement.empty()) move.to->execute(statement);
    }
  }

  // Throws Refusal with all tables that differ.
  void compare() {
    std::string differing;
    for_each_part("comparing", [&](const Move& move, const TablePart& part) {
      const std::string difference =
          difference_of(rows_of(*move.from, *move.table, part), rows_of(*move.to, *move.table, part));
      if (!difference.empty())
        differing.append("\n  ").append(move.table->name).append(": ").append(difference);
    });
    for (const Move& move : moves_) {
      if (row_count(*move.from, move.table->name) == row_count(*move.to, move.table->name)) continue;
      differing.append("\n  ").append(move.table->name).append(": another number of rows");
    }
    if (!differing.empty())
      throw Refusal("nothing was copied, because the copy is another than its source:" + differing);
  }

  std::vector<TableCount> counts() const {
    std::vector<TableCount> counts;
    for (const Move& move : moves_) {
      std::uint64_t rows = 0;
      for (const TablePart& part : move.parts) rows += part.rows;
      counts.push_back({std::string(move.table->name), std::to_string(rows)});
    }
    return counts;
  }

 private:
  void for_each_part(std::string_view doing, const auto& act) {
    std::uint64_t done = 0;
    for (const Move& move : moves_) {
      for (const TablePart& part : move.parts) {
        progress_(doing, move.table->name, done, rows_);
        act(move, part);
        done += part.rows;
      }
    }
    progress_(doing, {}, done, rows_);
  }

  const CopyProgress& progress_;
  std::vector<Move> moves_;
  std::uint64_t rows_ = 0;
};

void begin_new_tables(const AdoConnection& target, SchemaUpgrade& upgrade) {
  if (upgrade.version_before() == 0) {
    for (const std::string& statement : schema::settings(target.engine())) target.execute(statement);
  }
  target.begin();
  upgrade.add_tables();
}

bool has_client_journal(const AdoConnection& connection) {
  return std::ranges::count(connection.relations(), client_journal_table().name) != 0;
}

void add_client_journal(Copy& copy, const AdoConnection& source, const AdoConnection& target) {
  if (!has_client_journal(source)) return;
  if (!has_client_journal(target))
    target.execute(schema::create_table(target.engine(), client_journal_table()));
  copy.add(client_journal_table(), source, target);
}

}  // namespace

std::vector<TableCount> copy_database(const std::string& from, const std::string& to,
                                      const CopyProgress& progress) {
  const DatabasePlace source_place(from);
  const DatabasePlace target_place(to);
  check_files(source_place, target_place);
  PresentFile target_file(target_place.file);
  const AdoConnection source(source_place.connection_string);
  const AdoConnection target(target_place.connection_string);
  source.begin();
  check_source(source);
  SchemaUpgrade upgrade(target);
  begin_new_tables(target, upgrade);

  Copy copy(progress);
  for (const schema::Table& table : schema::tables()) {
    if (table.name == schema::version_table || table.name == schema::number_table) continue;
    copy.add(table, source, target);
  }
  add_client_journal(copy, source, target);
  const NumberCounters numbers(source, target, target_place.connection_string);
  if (numbers.issued()) copy.add(number_counters_table(), numbers.source(), numbers.target());
  copy.copy();
  upgrade.add_the_rest();
  copy.gather_statistics();
  copy.compare();
  target.commit();
  target_file.keep();
  numbers.commit();
  return copy.counts();
}

}  // namespace tallyra::company
