#include "standins/ado/postgresql/postgresql_error.h"

#include <string>

#include "standins/ado/ado_error.h"
#include "standins/ado/error_numbers.h"

namespace tallyra::standins::ado {
namespace {

std::string field(const PGresult* result, int code) {
  const char* const text = PQresultErrorField(result, code);
  return text ? text : std::string();
}

std::string without_line_end(std::string text) {
  while (!text.empty() && (text.back() == '\n' || text.back() == ' ')) text.pop_back();
  return text;
}

// The library tells by its words alone why a login failed.
bool is_refused_login(std::string_view text) {
  return text.find("authentication failed") != std::string_view::npos ||
         text.find("no password supplied") != std::string_view::npos ||
         text.find("no pg_hba.conf entry") != std::string_view::npos;
}

}  // namespace

std::string_view state_of(const PGresult* result) {
  const char* const state = PQresultErrorField(result, PG_DIAG_SQLSTATE);
  return state ? state : std::string_view();
}

automation::Error postgresql_error(const PGresult* result) {
  std::string text = field(result, PG_DIAG_MESSAGE_PRIMARY);
  if (text.empty()) text = without_line_end(PQresultErrorMessage(result));
  if (const std::string detail = field(result, PG_DIAG_MESSAGE_DETAIL); !detail.empty())
    text += " (" + detail + ")";
  return {error_number_of_state(state_of(result)), std::move(text)};
}

automation::Error connection_error(PGconn* connection) {
  std::string text = without_line_end(PQerrorMessage(connection));
  if (text.empty()) text = "The connection to the server is lost";
  return {is_refused_login(text) ? provider_error::login_failed : provider_error::unspecified,
          std::move(text)};
}

}  // namespace tallyra::standins::ado
