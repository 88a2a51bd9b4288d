#include "standins/ado/odbc_environment.h"

#include "standins/ado/odbc_handle.h"

#ifndef _WIN32
#include <dlfcn.h>
#endif

namespace tallyra::standins::ado {
namespace {

// The driver manager loads the library that reads data sources for every connection and drops it afterwards;
// each time 4 KB are lost of what it has read. Held here, it stays, and uses again what it has read.
void hold_data_source_reader() {
#ifndef _WIN32
  ::dlopen("libodbcinst.so.2", RTLD_LAZY | RTLD_LOCAL);
#endif
}

OdbcHandle<SQL_HANDLE_ENV> make_environment() {
  hold_data_source_reader();
  OdbcHandle<SQL_HANDLE_ENV> environment(SQL_HANDLE_ENV, SQL_NULL_HANDLE);
  environment.require(SQLSetEnvAttr(environment.get(), SQL_ATTR_ODBC_VERSION, odbc_number(SQL_OV_ODBC3), 0));
  return environment;
}

}  // namespace

SQLHENV odbc_environment() {
#ifdef _WIN32
  // Left to the process: a DLL's last moment is under the loader's lock, where the driver manager must not be
  // called.
  static const auto& environment = *new OdbcHandle<SQL_HANDLE_ENV>(make_environment());
#else
  static const OdbcHandle<SQL_HANDLE_ENV> environment = make_environment();
#endif
  return environment.get();
}

}  // namespace tallyra::standins::ado
