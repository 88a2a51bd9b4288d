#include "standins/ado/odbc/column_description.h"

#include <array>
#include <string_view>

#include "standins/ado/folded_column_name.h"
#include "standins/ado/odbc/odbc_error.h"

namespace tallyra::standins::ado {
namespace {

constexpr SQLULEN sqlite_size_of_expression = 255;

DataType type_of(SQLSMALLINT sql_type) {
  switch (sql_type) {
    case SQL_SMALLINT: return DataType::small_int;
    case SQL_INTEGER: return DataType::integer;
    case SQL_TINYINT: return DataType::unsigned_tiny_int;
    case SQL_BIGINT: return DataType::big_int;
    case SQL_REAL: return DataType::single;
    case SQL_FLOAT:
    case SQL_DOUBLE: return DataType::double_precision;
    case SQL_NUMERIC:
    case SQL_DECIMAL: return DataType::numeric;
    case SQL_BIT: return DataType::boolean;
    case SQL_TYPE_DATE: return DataType::date;
    case SQL_TYPE_TIMESTAMP: return DataType::time_stamp;
    case SQL_BINARY:
    case SQL_VARBINARY: return DataType::bytes;
    case SQL_LONGVARBINARY: return DataType::long_bytes;
    case SQL_LONGVARCHAR:
    case SQL_WLONGVARCHAR: return DataType::long_text;
    default: return DataType::text;
  }
}

bool name_may_tell_more(SQLSMALLINT sql_type, bool is_sqlite) {
  return sql_type == SQL_VARCHAR || sql_type == SQL_WVARCHAR || sql_type == SQL_CHAR ||
         sql_type == SQL_NUMERIC || sql_type == SQL_DECIMAL || (is_sqlite && sql_type == SQL_DOUBLE);
}

class Describer {
 public:
  Describer(SQLHSTMT statement, bool is_sqlite) : statement_(statement), is_sqlite_(is_sqlite) {}

  Column describe(SQLUSMALLINT number) {
    SQLSMALLINT name_length = 0;
    SQLSMALLINT sql_type = 0;
    SQLULEN size = 0;
    SQLSMALLINT digits = 0;
    SQLSMALLINT nullable = 0;
    const SQLRETURN result =
        SQLDescribeCol(statement_, number, buffer_.data(), static_cast<SQLSMALLINT>(buffer_.size()),
                       &name_length, &sql_type, &size, &digits, &nullable);
    if (!SQL_SUCCEEDED(result)) raise_diagnostic(SQL_HANDLE_STMT, statement_);
    Column column;
    column.name = text();
    column.type = type_of(sql_type);
    if (is_sqlite_ && sql_type == SQL_VARCHAR && size == sqlite_size_of_expression)
      column.undeclared = attribute(number, SQL_DESC_BASE_TABLE_NAME).empty();
    if (!column.undeclared && name_may_tell_more(sql_type, is_sqlite_)) {
      const std::string_view declared = attribute(number, SQL_DESC_TYPE_NAME);
      column.type = type_behind(declared).value_or(column.type);
    }
    measure(column, static_cast<std::int64_t>(size), digits);
    return column;
  }

 private:
  std::string_view text() const { return reinterpret_cast<const char*>(buffer_.data()); }

  // Empty when the driver does not tell.
  std::string_view attribute(SQLUSMALLINT number, SQLUSMALLINT field) {
    buffer_[0] = 0;
    SQLSMALLINT length = 0;
    SQLLEN unused = 0;
    const SQLRETURN result = SQLColAttribute(statement_, number, field, buffer_.data(),
                                             static_cast<SQLSMALLINT>(buffer_.size()), &length, &unused);
    return SQL_SUCCEEDED(result) ? text() : std::string_view();
  }

  SQLHSTMT statement_;
  bool is_sqlite_;
  std::array<SQLCHAR, 1024> buffer_{};
};

}  // namespace

std::vector<Column> describe_columns(SQLHSTMT statement, int count, bool is_sqlite, bool is_postgresql) {
  Describer describer(statement, is_sqlite);
  std::vector<Column> columns;
  columns.reserve(static_cast<std::size_t>(count));
  for (int number = 1; number <= count; ++number) {
    columns.push_back(describer.describe(static_cast<SQLUSMALLINT>(number)));
    if (is_postgresql) columns.back().name = folded_column_name(columns.back().name);
  }
  return columns;
}

}  // namespace tallyra::standins::ado
