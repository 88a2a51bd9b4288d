#include "standins/ado/odbc_error.h"

#include <array>
#include <climits>
#include <optional>

#include "standins/ado/ado_error.h"

namespace tallyra::standins::ado {
namespace {

struct StateNumber {
  std::string_view state;  // a whole SQLSTATE, or the two characters of its class
  std::int32_t number;
};

// Whole states first: the first entry that a state begins with decides.
constexpr StateNumber state_numbers[] = {
    {"42S02", provider_error::no_such_table},     {"42P01", provider_error::no_such_table},
    {"42501", provider_error::permission_denied}, {"42", provider_error::errors_in_command},
    {"37", provider_error::errors_in_command},    {"23", provider_error::integrity_violation},
    {"22018", provider_error::cannot_convert},    {"22007", provider_error::cannot_convert},
    {"22008", provider_error::cannot_convert},    {"22P02", provider_error::cannot_convert},
    {"22003", provider_error::overflow},          {"22001", provider_error::overflow},
    {"22012", provider_error::errors_in_command}, {"21", provider_error::errors_in_command},
    {"07002", provider_error::parameter_missing}, {"07001", provider_error::parameter_missing},
    {"28", provider_error::login_failed},         {"HYT00", provider_error::timeout},
};

constexpr int sqlite_error = 1;
constexpr int sqlite_constraint = 19;
constexpr int sqlite_mismatch = 20;
constexpr int sqlite_driver_refusal = -1;

bool contains(std::string_view text, std::string_view part) {
  return text.find(part) != std::string_view::npos;
}

std::int32_t sqlite_error_number(std::int32_t native, std::string_view message) {
  switch (native) {
    case sqlite_error:
      return contains(message, "no such table") ? provider_error::no_such_table
                                                : provider_error::errors_in_command;
    case sqlite_constraint: return provider_error::integrity_violation;
    case sqlite_mismatch: return provider_error::cannot_convert;
    case sqlite_driver_refusal:
      return contains(message, "unbound parameters") ? provider_error::parameter_missing
                                                     : provider_error::errors_in_command;
    default: return provider_error::unspecified;
  }
}

std::optional<Diagnostic> read_diagnostic(SQLSMALLINT type, SQLHANDLE handle, SQLSMALLINT record) {
  std::array<SQLCHAR, SQL_SQLSTATE_SIZE + 1> state{};
  std::string message(1024, '\0');
  SQLINTEGER native = 0;
  SQLSMALLINT length = 0;
  const auto read = [&] {
    return SQLGetDiagRec(type, handle, record, state.data(), &native,
                         reinterpret_cast<SQLCHAR*>(message.data()), static_cast<SQLSMALLINT>(message.size()),
                         &length);
  };
  SQLRETURN result = read();
  if (result == SQL_SUCCESS_WITH_INFO && static_cast<std::size_t>(length) >= message.size() &&
      length < SHRT_MAX) {
    message.resize(static_cast<std::size_t>(length) + 1);
    result = read();
  }
  if (!SQL_SUCCEEDED(result)) return std::nullopt;
  message.resize(std::char_traits<char>::length(message.c_str()));
  return Diagnostic{reinterpret_cast<const char*>(state.data()), static_cast<std::int32_t>(native),
                    std::move(message)};
}

}  // namespace

std::int32_t error_number(const Diagnostic& diagnostic) {
  if (diagnostic.state == "HY000" && contains(diagnostic.message, "[SQLite]"))
    return sqlite_error_number(diagnostic.native, diagnostic.message);
  for (const StateNumber& entry : state_numbers)
    if (diagnostic.state.starts_with(entry.state)) return entry.number;
  return provider_error::unspecified;
}

std::string_view error_text(const Diagnostic& diagnostic) {
  std::string_view text = diagnostic.message;
  while (text.starts_with('[')) {
    const auto end = text.find(']');
    if (end == std::string_view::npos) break;
    text.remove_prefix(end + 1);
  }
  while (text.starts_with(' ')) text.remove_prefix(1);
  const std::string code = " (" + std::to_string(diagnostic.native) + ")";
  if (text.size() > code.size() && text.ends_with(code)) text.remove_suffix(code.size());
  return text;
}

automation::Error diagnostic_error(SQLSMALLINT handle_type, SQLHANDLE handle) {
  std::optional<Diagnostic> chosen;
  for (SQLSMALLINT record = 1; auto next = read_diagnostic(handle_type, handle, record); ++record) {
    // A driver may put warnings in front of the error; when there is no error, the first warning tells most.
    const bool warning = next->state.starts_with("01");
    if (!chosen || !warning) chosen = std::move(next);
    if (!warning) break;
  }
  if (!chosen) return automation::Error(provider_error::unspecified, "Unspecified error");
  return automation::Error(error_number(*chosen), std::string(error_text(*chosen)));
}

void raise_diagnostic(SQLSMALLINT handle_type, SQLHANDLE handle) {
  throw diagnostic_error(handle_type, handle);
}

}  // namespace tallyra::standins::ado
