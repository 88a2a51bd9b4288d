#include "standins/ado/odbc/row_reader.h"

#include <algorithm>
#include <cstdio>
#include <cstring>

#include "automation/date.h"
#include "standins/ado/ado_error.h"
#include "standins/ado/cell_parsing.h"
#include "standins/ado/odbc/column_description.h"
#include "standins/ado/odbc/odbc_error.h"
#include "standins/ado/undeclared_columns.h"

namespace tallyra::standins::ado {
namespace {

constexpr std::size_t number_text_width = 40;
// Longer values are rare and read again whole; shorter buffers stay in the processor's cache.
constexpr std::size_t usual_text_width = 256;
constexpr std::size_t widest_bound_text = 8192;
constexpr std::size_t largest_cell = 0xFFFF'FFFF;

SQLSMALLINT exact_c_type(DataType type) {
  switch (type) {
    case DataType::small_int:
    case DataType::integer:
    case DataType::unsigned_tiny_int:
    case DataType::big_int: return SQL_C_SBIGINT;
    case DataType::single:
    case DataType::double_precision: return SQL_C_DOUBLE;
    case DataType::date:
    case DataType::time_stamp: return SQL_C_TYPE_TIMESTAMP;
    default: return SQL_C_CHAR;
  }
}

std::size_t fixed_width(SQLSMALLINT c_type) {
  switch (c_type) {
    case SQL_C_SBIGINT: return sizeof(SQLBIGINT);
    case SQL_C_DOUBLE: return sizeof(SQLDOUBLE);
    case SQL_C_TYPE_TIMESTAMP: return sizeof(SQL_TIMESTAMP_STRUCT);
    default: return 0;
  }
}

// Room for every text of the column that its engine allows, in UTF-8 and with a final NUL; 0 when unknown.
std::size_t greatest_text_width(const Column& column) {
  if (column.defined_size <= 0 || static_cast<std::size_t>(column.defined_size) > widest_bound_text / 4)
    return 0;
  return static_cast<std::size_t>(column.defined_size) * 4 + 1;
}

template <class T>
T from_bytes(const char* bytes) {
  T value;
  std::memcpy(&value, bytes, sizeof value);
  return value;
}

Cell date_cell(const SQL_TIMESTAMP_STRUCT& stamp, TextArena& arena) {
  const automation::CivilTime civil{stamp.year, stamp.month,  stamp.day,
                                    stamp.hour, stamp.minute, stamp.second};
  if (const auto date = automation::date_from_civil(civil)) {
    const double part = stamp.fraction / 1e9 / 86400.0;
    return Cell::of_number(Cell::Kind::date, date->serial < 0 ? date->serial - part : date->serial + part);
  }
  char text[64];  // a year that automation has no date for
  const int size = std::snprintf(text, sizeof text, "%04d-%02d-%02d %02d:%02d:%02d", civil.year, civil.month,
                                 civil.day, civil.hour, civil.minute, civil.second);
  return Cell::of_data(Cell::Kind::text, arena.keep({text, static_cast<std::size_t>(size)}),
                       static_cast<std::size_t>(size));
}

}  // namespace

std::unique_ptr<RowSet> RowReader::read(SQLHSTMT statement, int column_count) {
  auto rows = std::make_unique<RowSet>(
      describe_columns(statement, column_count, traits_.is_sqlite, traits_.is_postgresql));
  plan(rows->columns());
  bind(statement);
  for (;;) {
    const SQLRETURN fetched = SQLFetch(statement);
    if (fetched == SQL_NO_DATA) break;
    if (!SQL_SUCCEEDED(fetched)) raise_diagnostic(SQL_HANDLE_STMT, statement);
    Cell* const row = rows->add_row();
    for (std::size_t column = 0; column < transfers_.size(); ++column)
      row[column] = read_cell(statement, *rows, column);
  }
  settle_undeclared_columns(*rows);
  return rows;
}

void RowReader::plan(const std::vector<Column>& columns) {
  transfers_.clear();
  std::size_t offset = 0;
  bool bind_more = true;
  for (const Column& column : columns) {
    Transfer transfer{SQL_C_CHAR, offset, 0, 0, true};
    if (is_bytes(column.type))
      transfer.c_type = SQL_C_BINARY;
    else if (!traits_.is_sqlite)
      transfer.c_type = exact_c_type(column.type);
    transfer.width = fixed_width(transfer.c_type);
    if (transfer.width == 0) {
      const bool variable = is_text(column.type) || is_bytes(column.type);
      const std::size_t greatest = variable ? greatest_text_width(column) : number_text_width;
      // What may not fit and could not be read again stays unbound, and by the rules for such drivers
      // everything behind it too.
      if (!traits_.rereads_bound_columns && greatest == 0) bind_more = false;
      transfer.width = greatest;
      if (greatest == 0 || traits_.rereads_bound_columns)
        transfer.width = std::min(greatest == 0 ? usual_text_width : greatest, usual_text_width);
    }
    transfer.bound = bind_more;
    offset += (transfer.width + 7) / 8 * 8;
    transfers_.push_back(transfer);
  }
  if (buffer_.size() < offset) buffer_.resize(offset);
}

void RowReader::bind(SQLHSTMT statement) {
  for (std::size_t column = 0; column < transfers_.size(); ++column) {
    Transfer& transfer = transfers_[column];
    if (!transfer.bound) continue;
    const SQLRETURN result = SQLBindCol(statement, static_cast<SQLUSMALLINT>(column + 1), transfer.c_type,
                                        buffer_.data() + transfer.offset, static_cast<SQLLEN>(transfer.width),
                                        &transfer.indicator);
    if (!SQL_SUCCEEDED(result)) raise_diagnostic(SQL_HANDLE_STMT, statement);
  }
}

Cell RowReader::read_cell(SQLHSTMT statement, RowSet& rows, std::size_t column) {
  Transfer& transfer = transfers_[column];
  const bool variable = transfer.c_type == SQL_C_CHAR || transfer.c_type == SQL_C_BINARY;
  if (!transfer.bound) {
    if (variable) return read_long(statement, rows, column);
    const SQLRETURN result = SQLGetData(statement, static_cast<SQLUSMALLINT>(column + 1), transfer.c_type,
                                        buffer_.data() + transfer.offset, static_cast<SQLLEN>(transfer.width),
                                        &transfer.indicator);
    if (!SQL_SUCCEEDED(result)) raise_diagnostic(SQL_HANDLE_STMT, statement);
  }
  if (transfer.indicator == SQL_NULL_DATA) return Cell::null();
  if (variable) {
    const std::size_t room = transfer.width - (transfer.c_type == SQL_C_CHAR ? 1 : 0);
    if (transfer.indicator < 0 || static_cast<std::size_t>(transfer.indicator) > room)
      return read_long(statement, rows, column);
  }
  return cell_from_buffer(rows.columns()[column].type, transfer, rows.texts());
}

Cell RowReader::cell_from_buffer(DataType type, const Transfer& transfer, TextArena& arena) const {
  const char* const data = buffer_.data() + transfer.offset;
  switch (transfer.c_type) {
    case SQL_C_SBIGINT: return integer_cell(type, from_bytes<SQLBIGINT>(data));
    case SQL_C_DOUBLE:
      return Cell::of_number(type == DataType::single ? Cell::Kind::single : Cell::Kind::real,
                             from_bytes<SQLDOUBLE>(data));
    case SQL_C_TYPE_TIMESTAMP: return date_cell(from_bytes<SQL_TIMESTAMP_STRUCT>(data), arena);
    default: {
      const std::string_view content(data, static_cast<std::size_t>(transfer.indicator));
      if (transfer.c_type == SQL_C_BINARY)
        return Cell::of_data(Cell::Kind::bytes, arena.keep(content), content.size());
      return parse_cell(type, content, arena);
    }
  }
}

Cell RowReader::read_long(SQLHSTMT statement, RowSet& rows, std::size_t column) {
  const SQLSMALLINT c_type = transfers_[column].c_type;
  const std::size_t terminator = c_type == SQL_C_CHAR ? 1 : 0;
  std::size_t size = 0;
  long_value_.resize(std::max<std::size_t>(long_value_.size(), 4096));
  for (;;) {
    const std::size_t room = long_value_.size() - size;
    SQLLEN left = 0;
    const SQLRETURN result = SQLGetData(statement, static_cast<SQLUSMALLINT>(column + 1), c_type,
                                        long_value_.data() + size, static_cast<SQLLEN>(room), &left);
    if (result == SQL_NO_DATA) break;
    if (!SQL_SUCCEEDED(result)) raise_diagnostic(SQL_HANDLE_STMT, statement);
    if (left == SQL_NULL_DATA) return Cell::null();
    if (left >= 0 && static_cast<std::size_t>(left) + terminator <= room) {
      size += static_cast<std::size_t>(left);
      break;
    }
    // Not the whole value yet; a driver that does not tell how much is left says so with a negative number.
    size += room - terminator;
    const std::size_t more = left > 0 ? static_cast<std::size_t>(left) - room + 2 * terminator : room;
    if (size + more > largest_cell) throw automation::Error(automation::error_number::out_of_memory);
    long_value_.resize(size + std::max<std::size_t>(more, 64));
  }
  const std::string_view content(long_value_.data(), size);
  Cell cell = c_type == SQL_C_BINARY
                  ? Cell::of_data(Cell::Kind::bytes, rows.texts().keep(content), content.size())
                  : parse_cell(rows.columns()[column].type, content, rows.texts());
  if (long_value_.size() > std::size_t{1024} * 1024) std::string().swap(long_value_);
  return cell;
}

}  // namespace tallyra::standins::ado
