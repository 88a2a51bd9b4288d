#pragma once

#include <libpq-fe.h>

#include <string_view>

#include "automation/error.h"

namespace tallyra::standins::ado {

// What the server said of a statement that it refused, as a client of a provider sees it.
automation::Error postgresql_error(const PGresult* result);

// The SQLSTATE of a failure; empty when there is none.
std::string_view state_of(const PGresult* result);

// What the library says of a connection that could not be made or that broke.
automation::Error connection_error(PGconn* connection);

}  // namespace tallyra::standins::ado
