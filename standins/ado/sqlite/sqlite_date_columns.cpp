#include "standins/ado/sqlite/sqlite_date_columns.h"

#include <string>

#include "standins/ado/sqlite/sqlite_columns.h"
#include "standins/ado/sqlite/sqlite_database.h"
#include "standins/ado/sqlite/sqlite_error.h"

namespace tallyra::standins::ado {
namespace {

std::string quoted(std::string_view name) {
  std::string result = "\"";
  for (const char c : name) result.append(c == '"' ? 2 : 1, c);
  return result += '"';
}

bool declares_date_or_nothing(const char* declared) {
  return declared && declares_date(declared);
}

// No table has the name: perhaps a view.
bool view_has_date(sqlite3* database, std::string_view view, std::string_view column) {
  const StatementHandle statement =
      prepare_sqlite(database, "SELECT v." + quoted(column) + " FROM " + quoted(view) + " AS v LIMIT 0", 0);
  return statement && declares_date_or_nothing(sqlite3_column_decltype(statement.get(), 0));
}

}  // namespace

bool SqliteDateColumns::is_date(std::string_view table, std::string_view column) {
  const std::string table_name(table);
  const std::string column_name(column);
  const char* declared = nullptr;
  const auto look = [&](const char* name) {
    return sqlite3_table_column_metadata(database_, nullptr, table_name.c_str(), name, &declared, nullptr,
                                         nullptr, nullptr, nullptr);
  };
  const int code = look(column_name.c_str());
  if (code == SQLITE_OK) return declares_date_or_nothing(declared);
  // Anything but "no such table column".
  if (code != SQLITE_ERROR) throw sqlite_error(database_);
  if (look(nullptr) == SQLITE_OK) return false;
  return view_has_date(database_, table, column);
}

}  // namespace tallyra::standins::ado
