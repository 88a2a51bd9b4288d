#pragma once

// The ODBC C API, by its narrow functions everywhere: texts go in and come out as UTF-8.

#ifdef _WIN32
#ifndef NOMINMAX
#define NOMINMAX
#endif
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#include <windows.h>
#endif

#include <sql.h>
#include <sqlext.h>

namespace tallyra::standins::ado {

// The API declares its text arguments writable, but does not write to them.
inline SQLCHAR* odbc_text(const char* text) {
  return reinterpret_cast<SQLCHAR*>(const_cast<char*>(text));
}

// Attributes that are numbers travel as pointers.
inline SQLPOINTER odbc_number(SQLULEN number) {
  // NOLINTNEXTLINE(performance-no-int-to-ptr): it is what the API asks for
  return reinterpret_cast<SQLPOINTER>(number);
}

}  // namespace tallyra::standins::ado
