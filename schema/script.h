#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "schema/description.h"

// The description in the words of an engine. Statements have no semicolon behind them.
namespace tallyra::schema {

enum class Engine { sqlite, postgresql, sqlserver, access };

// "sqlite", "postgresql", "sqlserver", "access", as the scripts are called; throws std::invalid_argument for
// any other name.
Engine engine_named(std::string_view name);

// The whole create script: heading, tables, indexes, statistics, version.
std::string create_script(Engine engine);

// Whether the table stands in the database itself. On SQLite, which locks whole files, the counters of
// document numbers stand in a file of their own beside it.
bool in_database(Engine engine, const Table& table);

// What a new database is told before it gets its first table, outside of a transaction.
std::vector<std::string> settings(Engine engine);

std::string create_table(Engine engine, const Table& table);
std::string create_index(Engine engine, const Table& table, const Index& index);
std::string add_column(Engine engine, const Table& table, const Column& column);

// What the planner is told about a typical company, so that a new, a small and a grown database get the same
// plans. Nothing for an engine that gathers its statistics itself.
std::vector<std::string> planner_statements(Engine engine);

// Has the engine count what is in a table that was filled at once; empty where planner_statements do instead.
std::string gather_statistics(Engine engine, const Table& table);

// Sets the version in a version table without a row.
std::string insert_version();

}  // namespace tallyra::schema
