#pragma once

#include <string_view>

namespace tallyra::standins::corvane {

// The two forms of SQL that the system writes; they differ in the delimiter of dates.
enum class Dialect { access, sql_server };

// "MSACCESS", spelled so, means the Access form; every other database kind the other one.
constexpr Dialect dialect_of(std::string_view database_kind) {
  return database_kind == "MSACCESS" ? Dialect::access : Dialect::sql_server;
}

}  // namespace tallyra::standins::corvane
