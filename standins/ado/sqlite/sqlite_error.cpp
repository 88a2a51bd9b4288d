#include "standins/ado/sqlite/sqlite_error.h"

#include <string>

#include "standins/ado/ado_error.h"
#include "standins/ado/error_numbers.h"

namespace tallyra::standins::ado {

automation::Error sqlite_error(sqlite3* database) {
  const int code = sqlite3_errcode(database) & 0xFF;
  std::string text = sqlite3_errmsg(database);
  if (code == SQLITE_NOMEM) return automation::Error(automation::error_number::out_of_memory);
  if (code == SQLITE_AUTH) return {provider_error::permission_denied, std::move(text)};
  const std::int32_t number = error_number_of_sqlite(code, text);
  return {number, std::move(text)};
}

void require_sqlite(sqlite3* database, int code) {
  if (code != SQLITE_OK && code != SQLITE_ROW && code != SQLITE_DONE) throw sqlite_error(database);
}

}  // namespace tallyra::standins::ado
