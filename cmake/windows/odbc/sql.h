#pragma once

// The cross compiler's ODBC headers use the system's types without declaring them, and turn every function
// into its wide form when UNICODE is defined. This project means the narrow functions on every system.
#ifndef NOMINMAX
#define NOMINMAX
#endif
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#include <windows.h>

#define SQL_NOUNICODEMAP
#include_next <sql.h>
