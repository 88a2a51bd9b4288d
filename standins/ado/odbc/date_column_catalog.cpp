#include "standins/ado/odbc/date_column_catalog.h"

#include <algorithm>
#include <array>
#include <utility>

#include "automation/folded_name.h"
#include "standins/ado/odbc/odbc_error.h"
#include "standins/ado/odbc/statement_scope.h"

namespace tallyra::standins::ado {
namespace {

// Longer than any engine lets a name be.
constexpr std::size_t longest_name = 1024;

// Positions in the result of SQLColumns.
constexpr SQLUSMALLINT table_name_column = 3;
constexpr SQLUSMALLINT column_name_column = 4;
constexpr SQLUSMALLINT data_type_column = 5;

std::string text_of(SQLHSTMT statement, SQLUSMALLINT column) {
  std::array<char, 1024> buffer{};
  SQLLEN length = 0;
  const SQLRETURN result =
      SQLGetData(statement, column, SQL_C_CHAR, buffer.data(), static_cast<SQLLEN>(buffer.size()), &length);
  if (!SQL_SUCCEEDED(result)) raise_diagnostic(SQL_HANDLE_STMT, statement);
  return buffer.data();
}

SQLSMALLINT number_of(SQLHSTMT statement, SQLUSMALLINT column) {
  SQLSMALLINT number = 0;
  SQLLEN length = 0;
  const SQLRETURN result = SQLGetData(statement, column, SQL_C_SSHORT, &number, sizeof number, &length);
  if (!SQL_SUCCEEDED(result)) raise_diagnostic(SQL_HANDLE_STMT, statement);
  return number;
}

}  // namespace

bool DateColumnCatalog::is_date(std::string_view table, std::string_view column) {
  if (table.size() > longest_name) return false;
  const std::string key = automation::folded(table);
  auto found = date_columns_.find(key);
  if (found == date_columns_.end()) found = date_columns_.emplace(key, read_date_columns(table)).first;
  return std::ranges::any_of(
      found->second, [&](const std::string& name) { return automation::equals_folded(name, column); });
}

DateColumnCatalog::Columns DateColumnCatalog::read_date_columns(std::string_view table) const {
  const std::string name = stores_small_letters_ ? automation::folded(table) : std::string(table);
  const StatementScope scope(statement_);
  const SQLRETURN result = SQLColumns(statement_, nullptr, 0, nullptr, 0, odbc_text(name.c_str()),
                                      static_cast<SQLSMALLINT>(name.size()), nullptr, 0);
  if (!SQL_SUCCEEDED(result)) raise_diagnostic(SQL_HANDLE_STMT, statement_);
  Columns columns;
  for (;;) {
    const SQLRETURN fetched = SQLFetch(statement_);
    if (fetched == SQL_NO_DATA) return columns;
    if (!SQL_SUCCEEDED(fetched)) raise_diagnostic(SQL_HANDLE_STMT, statement_);
    // The name is a pattern to the driver, so that an underscore brings in other tables as well.
    const bool same_table = automation::equals_folded(text_of(statement_, table_name_column), table);
    std::string column = text_of(statement_, column_name_column);
    const SQLSMALLINT type = number_of(statement_, data_type_column);
    if (same_table &&
        (type == SQL_TYPE_DATE || type == SQL_TYPE_TIMESTAMP || type == SQL_DATE || type == SQL_TIMESTAMP))
      columns.push_back(std::move(column));
  }
}

}  // namespace tallyra::standins::ado
