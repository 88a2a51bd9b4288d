#pragma once

#include <sqlite3.h>

#include "automation/error.h"

namespace tallyra::standins::ado {

// The Error for the last failure on a connection.
automation::Error sqlite_error(sqlite3* database);

// Throws it unless `code` says that all is well.
void require_sqlite(sqlite3* database, int code);

}  // namespace tallyra::standins::ado
