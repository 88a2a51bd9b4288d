#include "frame/closing_date_guard.h"

#include <optional>
#include <utility>

#include "frame/call.h"
#include "frame/date_literal.h"
#include "frame/sql.h"

namespace tallyra::frame {
namespace {

using automation::Value;

std::string later_closes(const std::string& system_database, const Value& date) {
  const DateLiteral literal(system_database);
  return sql("Select * From STKCLOSEHD Where CLOSEDT>={}", literal.of_text(automation::to_text(date)));
}

void report_if_found(Call& call, std::string statement) {
  Recordset& closes = call.recordset();
  call.open_connection();
  closes.open(std::move(statement), call.connection, CursorType::forward_only);
  if (!closes.at_end()) call.report(message::closed_period);
  closes.close();
  call.connection.close();
}

// The number stands even when its text cannot be had.
void report_closed_period(BusinessObject& object) {
  Call::set_error(object, message::closed_period.number, {});
  const Value text = collaborators().messages.get(message::closed_period.key);
  Call::set_error(object, message::closed_period.number, automation::to_text(text));
}

// No connection has a member of this name: clients tell an error of the database from a clean verdict by the
// error 438 that this call raises.
void raise_if_open(const std::optional<Call>& call) {
  if (call && call->connection.is_open()) call->connection.object().call("clsoe");
}

}  // namespace

Value valid_unless_in_doubt(BusinessObject& object, const std::string& system_database, const Value& date) {
  std::string statement = later_closes(system_database, date);
  std::optional<Call> call;
  try {
    call.emplace(object, 1);
    call->recordset().set_cursor_location(CursorLocation::server);
    call->prepare();
    report_if_found(*call, std::move(statement));
    return {};
  } catch (...) {
    // Whatever it is: the period counts as closed.
  }
  report_closed_period(object);
  raise_if_open(call);
  return {};
}

Value valid_unless_error(BusinessObject& object, const std::string& system_database, const Value& date) {
  std::optional<Call> call;
  try {
    call.emplace(object, 1);
    call->recordset().set_cursor_location(CursorLocation::server);
    call->set_error(0, {});
    report_if_found(*call, later_closes(system_database, date));
    return {};
  } catch (...) {
    Call::trap(object, automation::current_error());
  }
  raise_if_open(call);
  return {};
}

}  // namespace tallyra::frame
