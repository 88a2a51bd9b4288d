#include "bench/table.h"

namespace tallyra::bench {
namespace {

std::string padded(const Column& column, const std::string& text) {
  const std::string blanks(text.size() < column.width ? column.width - text.size() : 0, ' ');
  return column.is_number ? blanks + text : text + blanks;
}

Cells titles_of(const std::vector<Column>& columns) {
  Cells titles;
  for (const Column& column : columns) titles.push_back(column.title);
  return titles;
}

std::string markdown_row(const Cells& cells) {
  std::string row = "|";
  for (const std::string& cell : cells) row += cell.empty() ? " |" : " " + cell + " |";
  return row + "\n";
}

}  // namespace

std::string console_head(const std::vector<Column>& columns) {
  return console_row(columns, titles_of(columns));
}

std::string console_row(const std::vector<Column>& columns, const Cells& cells) {
  std::string row;
  for (std::size_t i = 0; i < cells.size(); ++i) {
    if (i > 0) row += "  ";
    row += padded(columns[i], cells[i]);
  }
  return row;
}

std::string markdown_table(const std::vector<Column>& columns, const std::vector<Cells>& rows) {
  std::string table = markdown_row(titles_of(columns)) + "|";
  for (const Column& column : columns) table += column.is_number ? "---:|" : "---|";
  table += "\n";
  for (const Cells& cells : rows) table += markdown_row(cells);
  return table;
}

}  // namespace tallyra::bench
