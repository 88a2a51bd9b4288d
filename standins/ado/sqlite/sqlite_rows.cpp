#include "standins/ado/sqlite/sqlite_rows.h"

#include <string>
#include <string_view>

#include "automation/error.h"
#include "standins/ado/cell_parsing.h"
#include "standins/ado/sqlite/sqlite_columns.h"
#include "standins/ado/undeclared_columns.h"

namespace tallyra::standins::ado {
namespace {

using Kind = Cell::Kind;

// Added to a number it takes the sign off a zero, which the library writes without one.
constexpr double positive_zero = 0.0;

bool is_whole_number(DataType type) {
  return type == DataType::integer || type == DataType::small_int || type == DataType::unsigned_tiny_int ||
         type == DataType::big_int;
}

std::string_view text_at(sqlite3_stmt* statement, int index) {
  const auto* const text = reinterpret_cast<const char*>(sqlite3_column_text(statement, index));
  if (!text) throw automation::Error(automation::error_number::out_of_memory);
  return {text, static_cast<std::size_t>(sqlite3_column_bytes(statement, index))};
}

std::string_view bytes_at(sqlite3_stmt* statement, int index) {
  const auto* const bytes = static_cast<const char*>(sqlite3_column_blob(statement, index));
  return {bytes, static_cast<std::size_t>(sqlite3_column_bytes(statement, index))};
}

// Bytes in a column that is not for them: as a statement would spell them.
Cell spelt_bytes(std::string_view bytes, TextArena& arena) {
  constexpr std::string_view digits = "0123456789ABCDEF";
  const std::size_t size = bytes.size() * 2 + 3;
  char* const begin = arena.allocate(size);
  char* at = begin;
  *at++ = 'X';
  *at++ = '\'';
  for (const char byte : bytes) {
    *at++ = digits[static_cast<unsigned char>(byte) >> 4];
    *at++ = digits[static_cast<unsigned char>(byte) & 0xF];
  }
  *at = '\'';
  return Cell::of_data(Kind::text, begin, size);
}

Cell parsed_cell(sqlite3_stmt* statement, int index, const Column& column, TextArena& arena) {
  const std::string_view text = text_at(statement, index);
  if (is_bytes(column.type)) return Cell::of_data(Kind::bytes, arena.keep(text), text.size());
  return parse_cell(column.type, text, arena);
}

Cell integer_at(sqlite3_stmt* statement, int index, const Column& column, TextArena& arena) {
  const std::int64_t value = sqlite3_column_int64(statement, index);
  if (is_whole_number(column.type)) return integer_cell(column.type, value);
  if (column.type == DataType::double_precision)
    return Cell::of_number(Kind::real, static_cast<double>(value));
  if (column.undeclared) return Cell::of_integer(Kind::int64, value);
  return parsed_cell(statement, index, column, arena);
}

Cell cell_at(sqlite3_stmt* statement, int index, const Column& column, TextArena& arena) {
  switch (sqlite3_column_type(statement, index)) {
    case SQLITE_NULL: return Cell::null();
    case SQLITE_INTEGER: return integer_at(statement, index, column, arena);
    case SQLITE_FLOAT:
      if (column.type == DataType::double_precision || is_whole_number(column.type) || column.undeclared)
        return Cell::of_number(Kind::real, sqlite3_column_double(statement, index) + positive_zero);
      break;
    case SQLITE_BLOB: {
      const std::string_view bytes = bytes_at(statement, index);
      if (is_bytes(column.type)) return Cell::of_data(Kind::bytes, arena.keep(bytes), bytes.size());
      return spelt_bytes(bytes, arena);
    }
    default: break;
  }
  return parsed_cell(statement, index, column, arena);
}

// A number among the values of a column without a type, as the engine would write it.
Cell written_number(const Cell& cell, TextArena& arena) {
  char text[64];
  if (cell.kind == Kind::int64)
    sqlite3_snprintf(sizeof text, text, "%lld", static_cast<long long>(cell.integer));
  else
    sqlite3_snprintf(sizeof text, text, "%!.15g", cell.number);
  const std::string_view written(text);
  return Cell::of_data(Kind::text, arena.keep(written), written.size());
}

// Numbers in a column that had no type by its first row: it is theirs when all of it are numbers and the
// first row has none. Otherwise they are texts like the rest.
void settle_numbers(RowSet& rows, std::size_t column_index) {
  bool any = false;
  bool real = false;
  bool all = rows.cell(0, column_index).kind == Kind::null;
  for (std::size_t row = 0; row < rows.row_count(); ++row) {
    const Kind kind = rows.cell(row, column_index).kind;
    any = any || kind == Kind::int64 || kind == Kind::real;
    real = real || kind == Kind::real;
    all = all && kind != Kind::text;
  }
  if (!any) return;
  Column& column = rows.columns()[column_index];
  if (all) column.type = real ? DataType::double_precision : DataType::integer;
  for (std::size_t row = 0; row < rows.row_count(); ++row) {
    Cell& cell = rows.cell(row, column_index);
    if (cell.kind != Kind::int64 && cell.kind != Kind::real) continue;
    if (!all)
      cell = written_number(cell, rows.texts());
    else if (!real)
      cell = integer_cell(DataType::integer, cell.integer);
    else if (cell.kind == Kind::int64)
      cell = Cell::of_number(Kind::real, static_cast<double>(cell.integer));
  }
}

}  // namespace

std::unique_ptr<RowSet> read_sqlite_rows(sqlite3_stmt* statement, int& code, bool long_names) {
  auto rows = std::make_unique<RowSet>(describe_sqlite_columns(statement, code == SQLITE_ROW, long_names));
  const std::size_t count = rows->columns().size();
  for (; code == SQLITE_ROW; code = sqlite3_step(statement)) {
    Cell* const row = rows->add_row();
    for (std::size_t index = 0; index < count; ++index)
      row[index] = cell_at(statement, static_cast<int>(index), rows->columns()[index], rows->texts());
  }
  if (rows->row_count() != 0)
    for (std::size_t index = 0; index < count; ++index)
      if (rows->columns()[index].undeclared) settle_numbers(*rows, index);
  settle_undeclared_columns(*rows);
  return rows;
}

}  // namespace tallyra::standins::ado
