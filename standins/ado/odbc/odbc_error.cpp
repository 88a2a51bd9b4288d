#include "standins/ado/odbc/odbc_error.h"

#include <array>
#include <climits>
#include <optional>

#include "standins/ado/ado_error.h"
#include "standins/ado/error_numbers.h"

namespace tallyra::standins::ado {
namespace {

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
  if (diagnostic.state == "HY000" && diagnostic.message.find("[SQLite]") != std::string::npos)
    return error_number_of_sqlite(diagnostic.native, diagnostic.message);
  return error_number_of_state(diagnostic.state);
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
    if (!chosen || !warning) chosen = next;
    if (!warning) break;
  }
  if (!chosen) return automation::Error(provider_error::unspecified, "Unspecified error");
  return automation::Error(error_number(*chosen), std::string(error_text(*chosen)));
}

void raise_diagnostic(SQLSMALLINT handle_type, SQLHANDLE handle) {
  throw diagnostic_error(handle_type, handle);
}

}  // namespace tallyra::standins::ado
