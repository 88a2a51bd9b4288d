#include "company/table_rows.h"

#include "automation/convert.h"
#include "company/cell_literal.h"
#include "company/options.h"

namespace tallyra::company {
namespace {

constexpr std::uint64_t rows_of_a_part = 20'000;
constexpr std::size_t rows_of_a_statement = 100;

std::string column_list(const schema::Table& table) {
  std::string list;
  for (const schema::Column& column : table.columns) {
    if (!list.empty()) list += ',';
    list += column.name;
  }
  return list;
}

std::string condition_of(const schema::Column& column, const automation::Value& first,
                         const automation::Value& last) {
  std::string condition = " WHERE ";
  condition.append(column.name).append(">=");
  append_literal(condition, column, first);
  condition.append(" AND ").append(column.name).append("<=");
  append_literal(condition, column, last);
  return condition;
}

}  // namespace

std::uint64_t row_count(const AdoConnection& connection, std::string_view table) {
  return static_cast<std::uint64_t>(connection.number("SELECT COUNT(*) AS N FROM " + std::string(table)));
}

std::vector<TablePart> parts_of(const AdoConnection& connection, const schema::Table& table) {
  const std::uint64_t count = row_count(connection, table.name);
  const schema::Column& column = table.columns.front();
  if (count <= rows_of_a_part || column.kind != schema::Kind::text || column.nullable) return {{{}, count}};
  const std::string name(column.name);
  const auto groups = connection.rows("SELECT " + name + ",COUNT(*) AS N FROM " + std::string(table.name) +
                                      " GROUP BY " + name + " ORDER BY " + name);
  std::vector<TablePart> parts;
  std::size_t first = 0;
  std::uint64_t rows = 0;
  for (std::size_t group = 0; group < groups.size(); ++group) {
    rows += static_cast<std::uint64_t>(automation::to_double(groups[group][1]));
    if (rows < rows_of_a_part && group + 1 < groups.size()) continue;
    parts.push_back({condition_of(column, groups[first][0], groups[group][0]), rows});
    first = group + 1;
    rows = 0;
  }
  return parts;
}

std::vector<std::string> rows_of(const AdoConnection& connection, const schema::Table& table,
                                 const TablePart& part) {
  const auto found =
      connection.rows("SELECT " + column_list(table) + " FROM " + std::string(table.name) + part.condition);
  std::vector<std::string> rows;
  rows.reserve(found.size());
  try {
    for (const auto& values : found) {
      std::string& row = rows.emplace_back();
      for (std::size_t i = 0; i < values.size(); ++i) {
        if (i != 0) row += ',';
        append_literal(row, table.columns[i], values[i]);
      }
    }
  } catch (const Refusal& refusal) {
    throw Refusal("in the table " + std::string(table.name) + " " + refusal.what());
  }
  return rows;
}

void insert_rows(const AdoConnection& connection, const schema::Table& table,
                 const std::vector<std::string>& rows) {
  const std::string head = "INSERT INTO " + std::string(table.name) + "(" + column_list(table) + ") VALUES";
  std::string statement;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    statement += i % rows_of_a_statement == 0 ? head : ",";
    statement += "(" + rows[i] + ")";
    if ((i + 1) % rows_of_a_statement != 0 && i + 1 != rows.size()) continue;
    connection.execute(statement);
    statement.clear();
  }
}

}  // namespace tallyra::company
