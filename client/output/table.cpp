#include "client/output/table.h"

#include <algorithm>

#include "client/display_width.h"
#include "client/output/json_value.h"
#include "client/output/text_table.h"
#include "client/value_text.h"

namespace tallyra::client {
namespace {

// The lines of a text, each cut into pieces that fit.
std::string cut_into_lines(const std::string& text, std::size_t width) {
  std::string result;
  for (std::string_view line : printable_lines(text)) do {
      const std::string_view piece = cut_to_width(line, width);
      result.append(result.empty() ? "" : "\n").append(piece);
      line.remove_prefix(piece.size());
    } while (!line.empty());
  return result;
}

// A line per column that has something, an empty line between the rows.
std::string rows_below_each_other(const Table& table, std::size_t width) {
  constexpr std::size_t gap = 2;
  constexpr std::size_t least_room = 10;
  std::size_t names = 0;
  for (const Column& column : table.columns) names = std::max(names, display_width(column.name));
  const std::size_t room = std::max(width, names + gap + least_room) - names - gap;
  std::string text;
  for (const auto& row : table.rows) {
    TextTable lines;
    for (std::size_t i = 0; i < row.size(); ++i)
      if (const std::string cell = text_or_nothing(row[i]); !cell.empty())
        lines.add_row(
            {table.columns[i].name, table.wraps ? wrapped(cell, room) : cut_into_lines(cell, room)});
    if (!text.empty()) text += '\n';
    lines.append_to(text);
  }
  return text.empty() ? "(none)\n" : text;
}

std::string as_text(const Table& table, std::size_t width) {
  std::string text = table.title.empty() ? std::string() : table.title + "\n";
  std::vector<Align> alignment;
  std::vector<std::string> heading;
  for (const Column& column : table.columns) {
    alignment.push_back(column.align);
    heading.push_back(column.name);
  }
  TextTable lines(std::move(alignment));
  lines.add_row(heading);
  for (const auto& row : table.rows) {
    std::vector<std::string> cells;
    cells.reserve(row.size());
    for (const auto& value : row) cells.push_back(text_or_nothing(value));
    lines.add_row(cells);
  }
  if (width == 0 || lines.fit(width, table.wraps ? Fit::wrapping : Fit::shortening))
    lines.append_with_heading(text);
  else
    text += rows_below_each_other(table, width);
  return text;
}

std::string quoted_where_needed(const std::string& cell) {
  if (cell.find_first_of(",\"\r\n") == std::string::npos) return cell;
  std::string quoted = "\"";
  for (const char c : cell) quoted.append(c == '"' ? 2 : 1, c);
  return quoted + "\"";
}

std::string as_csv(const Table& table) {
  std::string text;
  for (std::size_t i = 0; i < table.columns.size(); ++i)
    text.append(i == 0 ? "" : ",").append(quoted_where_needed(table.columns[i].name));
  text += '\n';
  for (const auto& row : table.rows) {
    for (std::size_t i = 0; i < row.size(); ++i)
      text.append(i == 0 ? "" : ",").append(quoted_where_needed(text_or_nothing(row[i])));
    text += '\n';
  }
  return text;
}

Json as_json(const Table& table) {
  Json rows = Json::array();
  for (const auto& row : table.rows) {
    Json object = Json::object();
    for (std::size_t i = 0; i < row.size() && i < table.columns.size(); ++i)
      object[table.columns[i].name] = value_json(row[i]);
    rows.push_back(std::move(object));
  }
  return rows;
}

}  // namespace

std::string printed(const std::vector<Table>& tables, OutputFormat format, std::size_t width) {
  if (format == OutputFormat::json) {
    Json json = Json::object();
    for (const Table& table : tables) json[table.name] = as_json(table);
    return json_text(json);
  }
  std::string text;
  for (const Table& table : tables) {
    if (&table != tables.data()) text += '\n';
    text += format == OutputFormat::csv ? as_csv(table) : as_text(table, width);
  }
  return text;
}

}  // namespace tallyra::client
