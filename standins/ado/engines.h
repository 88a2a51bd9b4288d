#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

#include "standins/ado/engine.h"

namespace tallyra::standins::ado {

// Opens a session of the engine that the client's connection string stands for, for a user and password that
// may be given beside the string (empty: none). An engine with a library of its own in this build takes the
// strings that are known to mean it; a string that names a provider, and every other, goes to ODBC. The login
// may take `login_seconds`, 0 for ever. Throws Error: 3706 for a provider that is not the one for ODBC, and
// what the engine says when the connection cannot be made.
std::unique_ptr<EngineSession> open_session(std::string_view client_string, std::string_view user,
                                            std::string_view password, std::int32_t login_seconds);

}  // namespace tallyra::standins::ado
