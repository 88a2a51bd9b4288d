#pragma once

#include <sqlite3.h>

#include <string_view>
#include <vector>

#include "standins/ado/column.h"

namespace tallyra::standins::ado {

// The columns of a statement that has been stepped once, `has_row` saying whether to a row. A declared type
// means what the ODBC driver takes it for. A column without one has the type of its value in the first row;
// where there is none it is a text, and `undeclared` unless it is a table's own.
std::vector<Column> describe_sqlite_columns(sqlite3_stmt* statement, bool has_row, bool long_names);

// Whether columns of the declared type hold dates.
bool declares_date(std::string_view declared);

}  // namespace tallyra::standins::ado
