#include "standins/ado/postgresql/result_reader.h"

#include <string_view>
#include <utility>
#include <vector>

#include "standins/ado/cell_parsing.h"
#include "standins/ado/folded_column_name.h"
#include "standins/ado/postgresql/type_oids.h"

namespace tallyra::standins::ado {
namespace {

// The server adds this to the length that a type declares.
constexpr int modifier_offset = 4;
// What the driver says of a text without a greatest length.
constexpr int unlimited_text = 255;

DataType type_of(Oid type) {
  switch (type) {
    case oid::boolean: return DataType::boolean;
    case oid::bytes: return DataType::long_bytes;
    case oid::big_int: return DataType::big_int;
    case oid::small_int: return DataType::small_int;
    case oid::integer: return DataType::integer;
    case oid::single: return DataType::single;
    case oid::double_precision: return DataType::double_precision;
    case oid::date: return DataType::date;
    case oid::time_stamp: return DataType::time_stamp;
    case oid::numeric: return DataType::numeric;
    default: return DataType::text;
  }
}

Column column_of(const PGresult* result, int number) {
  Column column;
  column.name = folded_column_name(PQfname(result, number));
  column.type = type_of(PQftype(result, number));
  const int modifier = PQfmod(result, number) - modifier_offset;
  if (column.type == DataType::numeric)
    measure(column, modifier < 0 ? 0 : modifier >> 16, modifier < 0 ? 0 : modifier & 0xFFFF);
  else
    measure(column, modifier < 0 || !is_text(column.type) ? unlimited_text : modifier, 0);
  return column;
}

int digit(char c) {
  return c <= '9' ? c - '0' : c - 'a' + 10;
}

// "\x" and two digits a byte.
Cell bytes_cell(std::string_view text, TextArena& arena) {
  text.remove_prefix(2);
  char* const room = arena.allocate(text.size() / 2);
  for (std::size_t i = 0; i + 1 < text.size(); i += 2)
    room[i / 2] = static_cast<char>(digit(text[i]) * 16 + digit(text[i + 1]));
  return Cell::of_data(Cell::Kind::bytes, room, text.size() / 2);
}

Cell cell_of(DataType type, std::string_view text, TextArena& arena) {
  switch (type) {
    case DataType::boolean: return Cell::of_integer(Cell::Kind::boolean, text == "t");
    case DataType::long_bytes: return bytes_cell(text, arena);
    case DataType::text: return Cell::of_data(Cell::Kind::text, arena.keep(text), text.size());
    default: return parse_cell(type, text, arena);
  }
}

}  // namespace

std::unique_ptr<RowSet> read_rows(const PGresult* result) {
  const int count = PQnfields(result);
  std::vector<Column> columns;
  columns.reserve(static_cast<std::size_t>(count));
  for (int number = 0; number < count; ++number) columns.push_back(column_of(result, number));
  auto rows = std::make_unique<RowSet>(std::move(columns));
  for (int row = 0; row < PQntuples(result); ++row) {
    Cell* const cells = rows->add_row();
    for (int number = 0; number < count; ++number) {
      const std::string_view text(PQgetvalue(result, row, number),
                                  static_cast<std::size_t>(PQgetlength(result, row, number)));
      cells[number] =
          PQgetisnull(result, row, number) != 0
              ? Cell::null()
              : cell_of(rows->columns()[static_cast<std::size_t>(number)].type, text, rows->texts());
    }
  }
  return rows;
}

}  // namespace tallyra::standins::ado
