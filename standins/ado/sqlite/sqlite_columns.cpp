#include "standins/ado/sqlite/sqlite_columns.h"

#include <charconv>
#include <string>

#include "automation/folded_name.h"

namespace tallyra::standins::ado {
namespace {

struct DeclaredType {
  std::string_view begin;  // of the declared name
  DataType type;
  std::int64_t size;  // unless the declaration says one; where it matters
};

constexpr DeclaredType any_other{"", DataType::text, 255};

// The first entry that a declared name begins with decides.
constexpr DeclaredType declared_types[] = {
    {"inter", DataType::text, 255},
    {"int", DataType::integer, 0},
    {"mediumint", DataType::integer, 0},
    {"numeric", DataType::double_precision, 54},
    {"tinyint", DataType::unsigned_tiny_int, 0},
    {"smallint", DataType::small_int, 0},
    {"float", DataType::double_precision, 0},
    {"double", DataType::double_precision, 0},
    {"real", DataType::double_precision, 0},
    {"timestamp", DataType::time_stamp, 0},
    {"datetime", DataType::time_stamp, 0},
    {"time", DataType::text, 8},
    {"date", DataType::date, 0},
    {"text", DataType::long_text, 65536},
    {"memo", DataType::long_text, 65536},
    {"longvarchar", DataType::long_text, 65536},
    {"bool", DataType::boolean, 0},
    {"bit", DataType::boolean, 0},
    {"bigint", DataType::big_int, 0},
    {"blob", DataType::bytes, 255},
    {"varbinary", DataType::bytes, 255},
    {"longvarbinary", DataType::long_bytes, 65536},
};

const DeclaredType& entry_of(std::string_view declared) {
  for (const DeclaredType& entry : declared_types)
    if (automation::equals_folded(declared.substr(0, entry.begin.size()), entry.begin)) return entry;
  return any_other;
}

std::string_view trimmed(std::string_view text) {
  while (text.ends_with(' ')) text.remove_suffix(1);
  while (text.starts_with(' ')) text.remove_prefix(1);
  return text;
}

void declare(Column& column, std::string_view declared) {
  const DeclaredType& entry = entry_of(declared);
  column.type = entry.type;
  std::int64_t size = entry.size;
  const auto parenthesis = declared.find('(');
  if (parenthesis != std::string_view::npos) {
    const std::string_view digits = trimmed(declared.substr(parenthesis + 1));
    std::from_chars(digits.data(), digits.data() + digits.size(), size);
  }
  if (entry.type == DataType::text || entry.type == DataType::double_precision)
    column.type = type_behind(trimmed(declared.substr(0, parenthesis))).value_or(entry.type);
  measure(column, size, 0);
}

// Without a declared type.
void guess(Column& column, int value_type) {
  switch (value_type) {
    case SQLITE_INTEGER: column.type = DataType::integer; break;
    case SQLITE_FLOAT: column.type = DataType::double_precision; break;
    case SQLITE_BLOB: column.type = DataType::bytes; break;
    default: column.type = DataType::text;
  }
  measure(column, any_other.size, 0);
}

Column describe(sqlite3_stmt* statement, int index, bool has_row, bool long_names) {
  Column column;
  column.name = sqlite3_column_name(statement, index);
  // An expression is named by its text, and that too is taken for a name with that of its table in front.
  const auto dot = column.name.rfind('.');
  if (!long_names && dot != std::string::npos) column.name.erase(0, dot + 1);
  if (const char* const declared = sqlite3_column_decltype(statement, index)) {
    declare(column, declared);
  } else {
    guess(column, has_row ? sqlite3_column_type(statement, index) : SQLITE_NULL);
    column.undeclared =
        column.type == DataType::text && sqlite3_column_table_name(statement, index) == nullptr;
  }
  return column;
}

}  // namespace

std::vector<Column> describe_sqlite_columns(sqlite3_stmt* statement, bool has_row, bool long_names) {
  const int count = sqlite3_column_count(statement);
  std::vector<Column> columns;
  columns.reserve(static_cast<std::size_t>(count));
  for (int index = 0; index < count; ++index)
    columns.push_back(describe(statement, index, has_row, long_names));
  return columns;
}

bool declares_date(std::string_view declared) {
  return is_date(entry_of(declared).type);
}

}  // namespace tallyra::standins::ado
