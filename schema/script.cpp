#include "schema/script.h"

#include <algorithm>
#include <stdexcept>

#include "schema/engine_words.h"

namespace tallyra::schema {
namespace {

std::string list_of(const std::vector<std::string_view>& names) {
  std::string list;
  for (const std::string_view name : names) {
    if (!list.empty()) list += ", ";
    list += name;
  }
  return list;
}

std::string definition(Engine engine, const Column& column, bool is_key) {
  const EngineWords& words = words_of(engine);
  std::string text = words.type(column);
  if (!column.initial.empty()) text.append(" DEFAULT ").append(column.initial);
  if (!column.nullable) text += " NOT NULL";
  if (is_key) text += " PRIMARY KEY";
  return text + words.check(column);
}

// Comment lines of a text, broken between words.
std::string comment(std::string_view text) {
  constexpr std::size_t width = 107;
  std::string lines;
  while (!text.empty()) {
    std::size_t end = text.size() <= width ? text.size() : text.rfind(' ', width);
    lines.append("-- ").append(text.substr(0, end)).append("\n");
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return lines;
}

std::string tables_part(Engine engine) {
  std::string script;
  std::string_view subject;
  for (const Table& table : tables()) {
    if (!in_database(engine, table)) continue;
    if (table.subject != subject) script += "-- " + std::string(subject = table.subject) + "\n\n";
    script += comment(table.note) + create_table(engine, table) + ";\n\n";
  }
  return script;
}

std::string indexes_part(Engine engine) {
  std::string script = "-- Indexes\n\n";
  for (const Table& table : tables()) {
    for (const Index& index : table.indexes) script += create_index(engine, table, index) + ";\n";
  }
  return script + "\n";
}

}  // namespace

Engine engine_named(std::string_view name) {
  if (name == "sqlite") return Engine::sqlite;
  if (name == "postgresql") return Engine::postgresql;
  if (name == "sqlserver") return Engine::sqlserver;
  if (name == "access") return Engine::access;
  throw std::invalid_argument("no engine is called '" + std::string(name) + "'");
}

const EngineWords& words_of(Engine engine) {
  switch (engine) {
    case Engine::postgresql: return postgresql_words;
    case Engine::sqlserver: return sqlserver_words;
    case Engine::access: return access_words;
    case Engine::sqlite: break;
  }
  return sqlite_words;
}

std::vector<std::string> settings(Engine engine) {
  const std::string_view setting = words_of(engine).setting;
  return setting.empty() ? std::vector<std::string>() : std::vector<std::string>{std::string(setting)};
}

bool in_database(Engine engine, const Table& table) {
  return table.name != number_table || words_of(engine).numbers_in_database;
}

std::string create_table(Engine engine, const Table& table) {
  std::size_t widest = 0;
  for (const Column& column : table.columns) widest = std::max(widest, column.name.size());
  std::string text = "CREATE TABLE " + std::string(table.name) + "(";
  for (const Column& column : table.columns) {
    const bool is_key = table.key.size() == 1 && table.key.front() == column.name;
    text += &column == &table.columns.front() ? "\n  " : ",\n  ";
    text.append(column.name).append(widest - column.name.size() + 1, ' ');
    text += definition(engine, column, is_key);
  }
  if (table.key.size() > 1) text += ",\n  PRIMARY KEY(" + list_of(table.key) + ")";
  text += "\n)";
  if (table.stored_by_key) text += words_of(engine).stored_by_key;
  return text;
}

std::string create_index(Engine engine, const Table& table, const Index& index) {
  const bool partial = !index.unless_empty.empty();
  const bool can = words_of(engine).partial_indexes || !partial;
  std::string text = index.unique && can ? "CREATE UNIQUE INDEX " : "CREATE INDEX ";
  text.append(index.name).append(" ON ").append(table.name).append("(");
  text += list_of(index.columns) + ")";
  if (partial && can) text.append(" WHERE ").append(index.unless_empty).append("<>''");
  return text;
}

std::string add_column(Engine engine, const Table& table, const Column& column) {
  return "ALTER TABLE " + std::string(table.name) + " ADD COLUMN " + std::string(column.name) + " " +
         definition(engine, column, false);
}

std::vector<std::string> planner_statements(Engine engine) {
  if (engine != Engine::sqlite) return {};
  // The first makes the table of statistics, the second has the planner read it.
  const std::string analyze = "ANALYZE sqlite_master";
  std::string insert;
  for (const Table& table : tables()) {
    for (const Index& index : table.indexes) {
      if (index.sqlite_statistics.empty()) continue;
      insert += insert.empty() ? "INSERT INTO sqlite_stat1(tbl, idx, stat) VALUES\n  ('" : ",\n  ('";
      insert.append(table.name).append("', '").append(index.name).append("', '");
      insert.append(index.sqlite_statistics).append("')");
    }
  }
  return {analyze, insert, analyze};
}

std::string gather_statistics(Engine engine, const Table& table) {
  return engine == Engine::postgresql ? "ANALYZE " + std::string(table.name) : std::string();
}

std::string insert_version() {
  return "INSERT INTO " + std::string(version_table) + "(" + std::string(version_column) + ") VALUES(" +
         std::to_string(version) + ")";
}

std::string create_script(Engine engine) {
  const EngineWords& words = words_of(engine);
  std::string script =
      std::string(words.heading) +
      "--\n"
      "-- Written by scripts/generate.sh from the description in this folder; change that.\n\n";
  for (const std::string& setting : settings(engine)) script += setting + ";\n\n";
  script += tables_part(engine) + indexes_part(engine);
  const auto statistics = planner_statements(engine);
  if (!statistics.empty()) {
    script +=
        "-- Planner statistics of a typical company, so that a new, small or grown database gets the same "
        "plans.\n";
    for (const std::string& statement : statistics) script += statement + ";\n";
    script += "\n";
  }
  return script + "-- Version of these tables\n\n" + insert_version() + ";\n";
}

}  // namespace tallyra::schema
