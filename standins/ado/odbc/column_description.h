#pragma once

#include <vector>

#include "standins/ado/column.h"
#include "standins/ado/odbc/odbc_api.h"

namespace tallyra::standins::ado {

// The columns of the statement's open result. Throws Error.
std::vector<Column> describe_columns(SQLHSTMT statement, int count, bool is_sqlite, bool is_postgresql);

}  // namespace tallyra::standins::ado
