#pragma once

#include <vector>

#include "schema/description.h"

// The parts of the description, a file each, and the words in which they are written.
namespace tallyra::schema {

std::vector<Table> stock_documents();
std::vector<Table> stocktaking();
std::vector<Table> closing_and_costing();
std::vector<Table> master_data();
std::vector<Table> surrounding_masters();
std::vector<Table> surrounding_orders();
std::vector<Table> administration();

constexpr Column text(std::string_view name, int length) {
  return {.name = name, .kind = Kind::text, .length = length};
}
constexpr Column number(std::string_view name) {
  return {.name = name, .kind = Kind::number};
}
constexpr Column integer(std::string_view name) {
  return {.name = name, .kind = Kind::integer};
}
constexpr Column date(std::string_view name) {
  return {.name = name, .kind = Kind::date};
}
// The number of a department or supplier: the close header stores its department as '10 ', and the next close
// finds it under '10'.
constexpr Column partner(std::string_view name) {
  return {.name = name, .kind = Kind::text, .length = 20, .trailing_blanks_count = false};
}

constexpr Column required(Column column) {
  column.nullable = false;
  return column;
}
constexpr Column from_zero(Column column) {
  column.initial = "0";
  return column;
}
constexpr Column from_one(Column column) {
  column.initial = "1";
  return column;
}
constexpr Column compared(Column column) {
  column.compared = true;
  return column;
}

// The columns with those behind them that say who made the row and who changed it last, and when.
std::vector<Column> with_stamp(std::vector<Column> columns);

}  // namespace tallyra::schema
