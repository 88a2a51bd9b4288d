#include "standins/ado/sqlite/sqlite_database.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <string>

#include "automation/error.h"
#include "standins/ado/ado_error.h"
#include "standins/ado/dialect/statement_guard.h"
#include "standins/ado/sqlite/sqlite_error.h"
#include "standins/ado/sqlite/sqlite_memory.h"

namespace tallyra::standins::ado {
namespace {

std::string what_is_in_the_way(const std::string& path, const std::string& words_of_library) {
  struct stat status {};
  if (path.starts_with("file:")) return words_of_library + ": " + path;  // of the library's own spelling
  if (::stat(path.c_str(), &status) != 0) {
    if (errno == ENOENT || errno == ENOTDIR) return "There is no database file " + path;
    if (errno == EACCES) return "No permission to reach the database file " + path;
  } else if (S_ISDIR(status.st_mode)) {
    return path + " is a folder and no database file";
  } else if (::faccessat(AT_FDCWD, path.c_str(), R_OK, AT_EACCESS) != 0) {
    return "No permission to read the database file " + path;
  }
  return words_of_library + ": " + path;
}

// Asked while a text is compiled. The dialect's guard has judged the text before; what it may have misread
// ends here.
int authorize(void*, int action, const char* first, const char* second, const char*, const char*) {
  switch (action) {
    case SQLITE_ATTACH:
    case SQLITE_DETACH:
    case SQLITE_CREATE_VTABLE: return SQLITE_DENY;
    case SQLITE_FUNCTION: return second && dialect::is_reaching_name(second) ? SQLITE_DENY : SQLITE_OK;
    case SQLITE_PRAGMA: {
      const bool own = second == nullptr && sqlite3_stricmp(first, "schema_version") == 0;
      return own || dialect::is_harmless_pragma(first) ? SQLITE_OK : SQLITE_DENY;
    }
    default: return SQLITE_OK;
  }
}

// A setting that the library refuses, for a lock that another holds or a word it does not know, stays as it
// is.
void set(sqlite3* database, const char* pragma, const std::string& value) {
  execute_sqlite(database, ("PRAGMA " + std::string(pragma) + "=" + value).c_str());
}

void shut_off_what_reaches_beyond(sqlite3* database) {
  sqlite3_db_config(database, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
  sqlite3_db_config(database, SQLITE_DBCONFIG_ENABLE_LOAD_EXTENSION, 0, nullptr);
  sqlite3_limit(database, SQLITE_LIMIT_ATTACHED, 0);
  sqlite3_set_authorizer(database, authorize, nullptr);
}

// Both for connections that live for one call. Nobody asks for the library's figures of its memory, and
// keeping them is a fifth of what such a connection costs. The address sanitizer is to see each piece of the
// library's memory by itself. Without effect where the process has used the library before.
bool prepare_library() {
  sqlite3_config(SQLITE_CONFIG_MEMSTATUS, 0);
#ifndef __SANITIZE_ADDRESS__
  sqlite_memory::install();
#endif
  return true;
}

}  // namespace

DatabaseHandle open_sqlite(const SqliteSource& source) {
  static const bool prepared = prepare_library();
  static_cast<void>(prepared);
  sqlite3* opened = nullptr;
  const int creation = source.may_create ? SQLITE_OPEN_CREATE : 0;
  const int code = sqlite3_open_v2(source.path.c_str(), &opened,
                                   SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX | creation, nullptr);
  DatabaseHandle database(opened);
  if (code == SQLITE_NOMEM || !opened) throw automation::Error(automation::error_number::out_of_memory);
  if (code != SQLITE_OK)
    throw automation::Error(provider_error::unspecified,
                            what_is_in_the_way(source.path, sqlite3_errmsg(opened)));
  sqlite3_busy_timeout(opened, source.busy_time);
  if (source.foreign_keys) sqlite3_db_config(opened, SQLITE_DBCONFIG_ENABLE_FKEY, 1, nullptr);
  set(opened, "synchronous", source.synchronous);
  if (!source.journal_mode.empty()) set(opened, "journal_mode", source.journal_mode);
  if (source.long_names) {
    set(opened, "short_column_names", "OFF");
    set(opened, "full_column_names", "ON");
  }
  shut_off_what_reaches_beyond(opened);
  return database;
}

int execute_sqlite(sqlite3* database, const char* sql) {
  return sqlite3_exec(database, sql, nullptr, nullptr, nullptr);
}

StatementHandle prepare_sqlite(sqlite3* database, std::string_view sql, unsigned use) {
  sqlite3_stmt* statement = nullptr;
  sqlite3_prepare_v3(database, sql.data(), static_cast<int>(sql.size()), use, &statement, nullptr);
  return StatementHandle(statement);
}

}  // namespace tallyra::standins::ado
