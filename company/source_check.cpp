#include "company/source_check.h"

#include <algorithm>
#include <filesystem>
#include <set>
#include <system_error>

#include "automation/convert.h"
#include "company/client_tables.h"
#include "company/options.h"
#include "company/schema_upgrade.h"

namespace tallyra::company {
namespace {

void check_columns(const AdoConnection& source, const schema::Table& table) {
  std::set<std::string, std::less<>> there;
  for (const std::string& column : source.columns_of(table.name)) there.insert(column);
  const std::string name(table.name);
  for (const schema::Column& column : table.columns) {
    if (there.erase(std::string(column.name)) == 0) {
      throw Refusal("the source has no " + name + "." + std::string(column.name) +
                    "; bring it up to date with --schema-only first");
    }
  }
  if (!there.empty()) {
    throw Refusal("the source has a column " + name + "." + *there.begin() +
                  ", which is not one of this system and would be lost");
  }
}

// A lock means that somebody is at work, and goes to no other database.
void check_client_tables(const AdoConnection& source, std::set<std::string, std::less<>>& there) {
  if (there.erase(std::string(client_lock_table)) != 0 &&
      source.number("SELECT COUNT(*) FROM " + std::string(client_lock_table)) != 0) {
    throw Refusal("somebody closes a month of the source; copy it when the lock is gone");
  }
  if (there.erase(std::string(client_journal_table().name)) != 0)
    check_columns(source, client_journal_table());
}

}  // namespace

void check_files(const DatabasePlace& source, const DatabasePlace& target) {
  namespace fs = std::filesystem;
  if (source.file.empty()) return;
  if (!fs::exists(source.file)) throw Refusal("there is no database '" + source.file + "'");
  std::error_code none_there;
  if (!target.file.empty() && fs::equivalent(source.file, target.file, none_there)) {
    throw Refusal("'" + source.file + "' cannot be copied into itself");
  }
}

void check_source(const AdoConnection& source) {
  if (source.engine() != schema::Engine::sqlite) throw Refusal("only an SQLite database can be copied from");
  const SchemaUpgrade version(source);
  std::set<std::string, std::less<>> there;
  for (const auto& row :
       source.rows("SELECT upper(name) FROM sqlite_master WHERE type='table' AND name NOT LIKE 'sqlite~_%' "
                   "ESCAPE '~'")) {
    there.insert(automation::to_text(row[0]));
  }
  there.erase(std::string(schema::version_table));
  for (const schema::Table& table : schema::tables()) {
    if (table.name == schema::version_table || table.name == schema::number_table) continue;
    if (there.erase(std::string(table.name)) != 0) {
      check_columns(source, table);
    } else {
      throw Refusal("the source has no table " + std::string(table.name) +
                    "; bring it up to date with --schema-only first");
    }
  }
  check_client_tables(source, there);
  if (!there.empty()) {
    throw Refusal("the source has a table " + *there.begin() +
                  ", which is not one of this system and would be left behind");
  }
}

}  // namespace tallyra::company
