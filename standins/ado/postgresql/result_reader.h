#pragma once

#include <libpq-fe.h>

#include <memory>

#include "standins/ado/row_set.h"

namespace tallyra::standins::ado {

// The rows of a result in the text form, typed as a client of ADO gets them through the ODBC driver.
std::unique_ptr<RowSet> read_rows(const PGresult* result);

}  // namespace tallyra::standins::ado
