#pragma once

#include <sqlite3.h>

#include <memory>

#include "standins/ado/row_set.h"

namespace tallyra::standins::ado {

// Reads the rows of a statement that has been stepped once, with the result `code`, until a step says
// something else than that there is a row, and leaves that in `code`. The statement must have columns.
std::unique_ptr<RowSet> read_sqlite_rows(sqlite3_stmt* statement, int& code, bool long_names);

}  // namespace tallyra::standins::ado
