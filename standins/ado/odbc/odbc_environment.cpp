#include "standins/ado/odbc/odbc_environment.h"

#ifndef _WIN32
#include <dlfcn.h>
#endif

namespace tallyra::standins::ado {
namespace {

// The driver manager loads the library that reads data sources for every connection and drops it afterwards;
// each time 4 KB are lost of what it has read. Held here, it stays, and uses again what it has read.
void hold_data_source_reader() {
#ifndef _WIN32
  [[maybe_unused]] static const void* const held = ::dlopen("libodbcinst.so.2", RTLD_LAZY | RTLD_LOCAL);
#endif
}

}  // namespace

OdbcHandle<SQL_HANDLE_ENV> make_odbc_environment() {
  hold_data_source_reader();
  OdbcHandle<SQL_HANDLE_ENV> environment(SQL_HANDLE_ENV, SQL_NULL_HANDLE);
  environment.require(SQLSetEnvAttr(environment.get(), SQL_ATTR_ODBC_VERSION, odbc_number(SQL_OV_ODBC3), 0));
  return environment;
}

}  // namespace tallyra::standins::ado
