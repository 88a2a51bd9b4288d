#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "automation/error.h"
#include "standins/ado/odbc/odbc_api.h"

namespace tallyra::standins::ado {

// One record of what a driver or the driver manager says about a failure.
struct Diagnostic {
  std::string state;  // SQLSTATE, five characters
  std::int32_t native = 0;
  std::string message;
};

// The number that a client of a provider would see for the failure. The SQLite driver reports every failure
// under one SQLSTATE; there its native code and the words of the message decide.
std::int32_t error_number(const Diagnostic& diagnostic);

// The driver's own sentence: without the bracketed names of the driver and the driver manager in front, and
// without the native code that the SQLite driver adds in parentheses behind.
std::string_view error_text(const Diagnostic& diagnostic);

// The Error for the last failure on a handle.
automation::Error diagnostic_error(SQLSMALLINT handle_type, SQLHANDLE handle);

// Throws the Error for the last failure on a handle.
[[noreturn]] void raise_diagnostic(SQLSMALLINT handle_type, SQLHANDLE handle);

}  // namespace tallyra::standins::ado
