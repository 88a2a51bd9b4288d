#pragma once

#include "standins/ado/odbc/odbc_handle.h"

namespace tallyra::standins::ado {

// An ODBC environment. Each connection has its own, which costs next to nothing: one that all shared would be
// left to free when a DLL is unloaded, where the driver manager must not be called. Throws Error when the
// driver manager gives none.
OdbcHandle<SQL_HANDLE_ENV> make_odbc_environment();

}  // namespace tallyra::standins::ado
