#include "frame/closing_date_guard.h"

#include <optional>

#include "frame/call.h"
#include "frame/date_literal.h"
#include "frame/sql.h"

namespace tallyra::frame {
namespace {

using automation::Error;
using automation::Value;

std::string later_closes(const std::string& system_database, const Value& date) {
  const DateLiteral literal(system_database);
  return sql("Select * From STKCLOSEHD Where CLOSEDT>={}", literal.of_text(automation::to_text(date)));
}

// The number stands even when its text cannot be had.
void report_closed_period(Session& session) {
  Call::set_error(session, message::closed_period.number, {});
  const Value text = collaborators().messages.get(message::closed_period.key);
  Call::set_error(session, message::closed_period.number, automation::to_text(text));
}

}  // namespace

Value valid_close_date(Session& session, const std::string& system_database, const Value& date,
                       const ClosingDateGuard& guard) {
  std::string statement;
  if (guard.statement == ClosingDateGuard::Statement::before_trap)
    statement = later_closes(system_database, date);
  std::optional<Call> call;
  std::optional<Error> error;
  try {
    call.emplace(session, 1);
    Recordset& closes = call->recordset();
    closes.set_cursor_location(CursorLocation::server);
    if (guard.collaborators == ClosingDateGuard::Collaborators::set_up)
      call->prepare();
    else
      call->set_error(0, {});
    if (guard.statement == ClosingDateGuard::Statement::inside_trap)
      statement = later_closes(system_database, date);

    call->open_connection();
    closes.open(std::move(statement), call->connection, CursorType::forward_only);
    if (!closes.at_end()) call->report(message::closed_period);
    closes.close();
    call->connection.close();
    return {};
  } catch (...) {
    error = automation::current_error();
  }

  if (guard.trap == ClosingDateGuard::Trap::closed_period)
    report_closed_period(session);
  else
    Call::trap(session, *error);
  // No connection has a member of this name: clients tell an error of the database from a clean verdict by
  // the error 438 that this call raises.
  if (call && call->connection.is_open()) call->connection.object().call("clsoe");
  return {};
}

}  // namespace tallyra::frame
