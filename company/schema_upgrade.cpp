#include "company/schema_upgrade.h"

#include <algorithm>

#include "automation/convert.h"
#include "company/database_place.h"
#include "company/options.h"
#include "schema/description.h"

namespace tallyra::company {
namespace {

using schema::version_table;

bool contains(const std::vector<std::string>& names, std::string_view name) {
  return std::ranges::find(names, name) != names.end();
}

std::string told(const SchemaUpgrade& upgrade) {
  const std::string version = std::to_string(schema::version);
  if (upgrade.version_before() == 0) {
    return "created version " + version + " with " + std::to_string(upgrade.added().size()) +
           " tables and indexes";
  }
  std::string text = upgrade.version_before() == schema::version
                         ? "is version " + version
                         : "was version " + std::to_string(upgrade.version_before()) + " and is " + version;
  const char* separator = "; added ";
  for (const std::string& name : upgrade.added()) {
    text += separator + name;
    separator = ", ";
  }
  return upgrade.added().empty() ? text + "; nothing was missing" : text;
}

}  // namespace

SchemaUpgrade::SchemaUpgrade(const AdoConnection& connection)
    : connection_(connection),
      engine_(connection.engine()),
      relations_(connection.relations()),
      version_before_(version_found()) {
  if (version_before_ > schema::version) {
    throw Refusal("the tables are of version " + std::to_string(version_before_) +
                  ", and this program knows " + std::to_string(schema::version) +
                  ": use the program that they were made with");
  }
}

bool SchemaUpgrade::has(std::string_view relation) const {
  return contains(relations_, relation);
}

int SchemaUpgrade::version_found() const {
  if (has(version_table)) {
    const auto rows = connection_.rows("SELECT MAX(" + std::string(schema::version_column) +
                                       ") AS NEWEST FROM " + std::string(version_table));
    if (!rows.at(0).at(0).is_null()) return automation::to_int32(rows[0][0]);
  }
  return std::ranges::any_of(schema::tables(), [&](const auto& table) { return has(table.name); }) ? 1 : 0;
}

void SchemaUpgrade::add_tables() {
  for (const schema::Table& table : schema::tables()) {
    if (!schema::in_database(engine_, table)) continue;
    if (has(table.name)) {
      add_columns(table);
      continue;
    }
    connection_.execute(schema::create_table(engine_, table));
    added_.emplace_back(table.name);
  }
}

void SchemaUpgrade::add_columns(const schema::Table& table) {
  const auto there = connection_.columns_of(table.name);
  for (const schema::Column& column : table.columns) {
    if (contains(there, column.name)) continue;
    const std::string name = std::string(table.name) + "." + std::string(column.name);
    if (!column.nullable) {
      throw Refusal("there is a table " + std::string(table.name) + " without " + name +
                    ", which every row needs: it is not one of this system");
    }
    connection_.execute(schema::add_column(engine_, table, column));
    added_.push_back(name);
  }
}

void SchemaUpgrade::add_the_rest() {
  for (const schema::Table& table : schema::tables()) {
    for (const schema::Index& index : table.indexes) {
      if (has(index.name)) continue;
      connection_.execute(schema::create_index(engine_, table, index));
      added_.emplace_back(index.name);
    }
  }
  // Statistics that somebody has gathered are better than those of a typical company.
  if (!has("SQLITE_STAT1")) {
    for (const std::string& statement : schema::planner_statements(engine_)) connection_.execute(statement);
  }
  if (version_before_ == schema::version) return;
  connection_.execute("DELETE FROM " + std::string(version_table));
  connection_.execute(schema::insert_version());
}

std::string upgrade_schema(const std::string& place) {
  const DatabasePlace database(place);
  PresentFile file(database.file);
  const AdoConnection connection(database.connection_string);
  SchemaUpgrade upgrade(connection);
  if (upgrade.version_before() == 0) {
    for (const std::string& statement : schema::settings(connection.engine())) connection.execute(statement);
  }
  connection.begin();
  upgrade.add_tables();
  upgrade.add_the_rest();
  connection.commit();
  file.keep();
  return told(upgrade);
}

}  // namespace tallyra::company
