#pragma once

#include "standins/ado/odbc_api.h"

namespace tallyra::standins::ado {

// The ODBC environment of this process, made on first use and kept until the process ends. Safe from any
// thread. Throws Error when the driver manager gives none; the next call tries again.
SQLHENV odbc_environment();

}  // namespace tallyra::standins::ado
