#include "standins/ado/error_numbers.h"

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
    {"22021", provider_error::cannot_convert},    {"57014", provider_error::timeout},
};

constexpr int sqlite_error = 1;
constexpr int sqlite_constraint = 19;
constexpr int sqlite_mismatch = 20;
constexpr int sqlite_driver_refusal = -1;

bool contains(std::string_view text, std::string_view part) {
  return text.find(part) != std::string_view::npos;
}

}  // namespace

std::int32_t error_number_of_state(std::string_view state) {
  for (const StateNumber& entry : state_numbers)
    if (state.starts_with(entry.state)) return entry.number;
  return provider_error::unspecified;
}

std::int32_t error_number_of_sqlite(std::int32_t code, std::string_view message) {
  switch (code) {
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

}  // namespace tallyra::standins::ado
