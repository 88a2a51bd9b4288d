#include "standins/ado/engines.h"

#include "standins/ado/ado_error.h"
#include "standins/ado/connection_string.h"
#include "standins/ado/odbc/odbc_session.h"
// On Windows the driver is the installed one; under Wine it is a library of the machine, which locks files as
// the machine's own processes do.
#ifndef _WIN32
#include "standins/ado/postgresql/connection_options.h"
#include "standins/ado/postgresql/postgresql_session.h"
#include "standins/ado/sqlite/sqlite_session.h"
#endif

namespace tallyra::standins::ado {
namespace {

struct Engine {
  // Whether the string means this engine.
  bool (*takes)(const ConnectionSource& source);
  std::unique_ptr<EngineSession> (*open)(const ConnectionSource& source);
};

// The first that takes a string has it.
constexpr Engine engines[] = {
#ifndef _WIN32
    {means_sqlite_library,
     [](const ConnectionSource& source) -> std::unique_ptr<EngineSession> {
       return std::make_unique<SqliteSession>(read_sqlite_source(source));
     }},
    {means_postgresql,
     [](const ConnectionSource& source) -> std::unique_ptr<EngineSession> {
       return std::make_unique<PostgresqlSession>(source);
     }},
#endif
    {[](const ConnectionSource&) { return true; },
     [](const ConnectionSource& source) -> std::unique_ptr<EngineSession> {
       return std::make_unique<OdbcSession>(source.odbc_string, source.login_seconds);
     }},
};

}  // namespace

std::unique_ptr<EngineSession> open_session(std::string_view client_string, std::string_view user,
                                            std::string_view password, std::int32_t login_seconds) {
  const ConnectionSource source = read_connection_string(client_string, user, password, login_seconds);
  for (const Engine& engine : engines)
    if (engine.takes(source)) return engine.open(source);
  raise(ado_error::provider_not_found);
}

}  // namespace tallyra::standins::ado
