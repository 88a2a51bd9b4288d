#include "standins/ado/undeclared_columns.h"

#include <charconv>
#include <cstdint>

#include "standins/ado/cell_parsing.h"

namespace tallyra::standins::ado {
namespace {

constexpr std::size_t time_stamp_size = 19;

bool is_integer_text(std::string_view text) {
  std::int64_t value = 0;
  char again[24];
  const auto read = std::from_chars(text.data(), text.data() + text.size(), value);
  if (read.ec != std::errc() || read.ptr != text.data() + text.size()) return false;
  const auto written = std::to_chars(again, again + sizeof again, value);
  return text == std::string_view(again, static_cast<std::size_t>(written.ptr - again));
}

// Digits, a point, digits and perhaps an exponent, without zeros in front: what the engine writes for a
// double.
bool is_real_text(std::string_view text) {
  if (text.starts_with('-')) text.remove_prefix(1);
  const auto point = text.find('.');
  if (point == std::string_view::npos || point == 0 || (text[0] == '0' && point > 1)) return false;
  double value = 0;
  const auto read = std::from_chars(text.data(), text.data() + text.size(), value);
  return read.ec == std::errc() && read.ptr == text.data() + text.size();
}

// Whether `accepts` holds for all texts of the column, of which there must be one.
template <class Accepts>
bool all_texts(RowSet& rows, std::size_t column, Accepts&& accepts) {
  bool any = false;
  for (std::size_t row = 0; row < rows.row_count(); ++row) {
    const Cell& cell = rows.cell(row, column);
    if (cell.kind == Cell::Kind::null) continue;
    if (cell.kind != Cell::Kind::text || !accepts(cell.view())) return false;
    any = true;
  }
  return any;
}

void reparse(RowSet& rows, std::size_t column, DataType type) {
  rows.columns()[column].type = type;
  for (std::size_t row = 0; row < rows.row_count(); ++row) {
    Cell& cell = rows.cell(row, column);
    if (cell.kind == Cell::Kind::text) cell = parse_cell(type, cell.view(), rows.texts());
  }
}

void settle(RowSet& rows, std::size_t column) {
  double serial = 0;
  if (all_texts(rows, column, [&](std::string_view text) {
        return text.size() == time_stamp_size && parse_time_stamp(text, serial);
      }))
    return reparse(rows, column, DataType::time_stamp);
  if (rows.cell(0, column).kind != Cell::Kind::null) return;
  if (all_texts(rows, column, is_integer_text)) return reparse(rows, column, DataType::integer);
  if (all_texts(rows, column,
                [](std::string_view text) { return is_integer_text(text) || is_real_text(text); }))
    return reparse(rows, column, DataType::double_precision);
}

}  // namespace

void settle_undeclared_columns(RowSet& rows) {
  if (rows.row_count() == 0) return;
  for (std::size_t column = 0; column < rows.columns().size(); ++column)
    if (rows.columns()[column].undeclared) settle(rows, column);
}

}  // namespace tallyra::standins::ado
