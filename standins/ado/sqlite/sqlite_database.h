#pragma once

#include <string_view>

#include "standins/ado/sqlite/sqlite_handle.h"
#include "standins/ado/sqlite/sqlite_source.h"

namespace tallyra::standins::ado {

// Opens the database, which must be there: a misspelt path makes no file. (An empty file is a database
// without tables.) What reaches beyond it (other files, libraries, tables that are code) is shut off. Throws
// Error with a text that says what is in the way: no such file, a folder, a file that may not be read. One
// that may not be written opens for reading.
DatabaseHandle open_sqlite(const SqliteSource& source);

// Runs a text of our own without rows; the result code.
int execute_sqlite(sqlite3* database, const char* sql);

// Compiles one statement; `use` is 0 or SQLITE_PREPARE_PERSISTENT. Null with the connection's error for a
// text that does not compile, null without one for a text of nothing.
StatementHandle prepare_sqlite(sqlite3* database, std::string_view sql, unsigned use);

}  // namespace tallyra::standins::ado
