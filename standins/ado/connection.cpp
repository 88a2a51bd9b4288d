#include "standins/ado/connection.h"

#include <utility>

#include "standins/ado/arguments.h"
#include "standins/ado/connection_string.h"
#include "standins/ado/engines.h"
#include "standins/ado/properties.h"
#include "standins/ado/recordset.h"

namespace tallyra::standins::ado {
namespace {

constexpr std::int32_t default_command_timeout = 30;

std::int32_t seconds(const automation::Value& value) {
  const std::int32_t number = integer_value(value);
  if (number < 0) raise(ado_error::invalid_argument);
  return number;
}

}  // namespace

using automation::Arguments;
using automation::Value;

const automation::MemberTable<Connection>& Connection::members() {
  using C = Connection;
  static const automation::MemberTable<C> table{
      {automation::default_member, "ConnectionString",
       automation::read_write<&C::connection_string, &C::set_connection_string>},
      {1, "Open", automation::method<&C::open>},
      {2, "Execute", automation::method<&C::execute>},
      {3, "BeginTrans", automation::method<&C::begin_trans>},
      {4, "CommitTrans", automation::method<&C::commit_trans>},
      {5, "RollbackTrans", automation::method<&C::rollback_trans>},
      {6, "Close", automation::method<&C::close>},
      {7, "State", automation::property<&C::state>},
      {8, "ConnectionTimeout", automation::read_write<&C::connection_timeout, &C::set_connection_timeout>},
      {9, "CommandTimeout", automation::read_write<&C::command_timeout, &C::set_command_timeout>},
      {10, "CursorLocation", automation::read_write<&C::location, &C::set_location>},
      {11, "Provider", automation::read_write<&C::provider, &C::set_provider>},
      {12, "Version", automation::property<&C::version>},
      {13, "Properties", automation::method<&C::properties>},
  };
  return table;
}

EngineSession& Connection::session() const {
  if (!session_) raise(ado_error::object_closed);
  return *session_;
}

Value Connection::open(Arguments arguments) {
  automation::expect_arguments(arguments, 0, 4);
  if (is_open()) raise(ado_error::object_open);
  auto connection_string = text_argument(arguments, 0);
  const std::string user = text_argument(arguments, 1).value_or("");
  const std::string password = text_argument(arguments, 2).value_or("");
  if (integer_argument(arguments, 3).value_or(unspecified) != unspecified) raise(ado_error::invalid_argument);
  open_with(connection_string ? std::move(*connection_string) : connection_string_, user, password);
  return {};
}

void Connection::open_with(std::string connection_string, std::string_view user, std::string_view password) {
  connection_string_ = std::move(connection_string);
  if (!is_odbc_provider(provider_)) raise(ado_error::provider_not_found);
  auto session = open_session(connection_string_, user, password, connection_timeout_);
  if (command_timeout_) session->limit_statements(*command_timeout_);
  session_ = std::move(session);
}

Value Connection::execute(Arguments arguments) {
  automation::expect_arguments(arguments, 1, 3);
  EngineSession& engine = session();
  std::string text_storage;
  std::string statement_storage;
  const std::int32_t options = execute_options(integer_argument(arguments, 2).value_or(unspecified));
  const std::string_view statement =
      statement_of(text_view(arguments[0].get(), text_storage), options, statement_storage);
  const bool count_affected = arguments.size() > 1 && arguments[1].is_reference();
  // Made beforehand: a statement that has run must not fail any more.
  automation::Object no_rows = automation::make_object<Recordset>();
  StatementResult result = engine.run(statement, count_affected);
  if (count_affected) arguments[1].set(static_cast<std::int32_t>(result.affected_rows));
  if (options != unspecified && (options & execute_option::no_records) != 0) return automation::Object();
  if (!result.rows) return no_rows;
  return automation::make_object<Recordset>(*this, statement, std::move(result.rows));
}

Value Connection::begin_trans(Arguments arguments) {
  automation::expect_arguments(arguments, 0, 0);
  if (session().in_transaction()) raise(provider_error::only_one_transaction);
  session().begin();
  return std::int32_t{1};
}

Value Connection::commit_trans(Arguments arguments) {
  automation::expect_arguments(arguments, 0, 0);
  if (!session().in_transaction()) raise(provider_error::no_transaction);
  session().commit();
  return {};
}

Value Connection::rollback_trans(Arguments arguments) {
  automation::expect_arguments(arguments, 0, 0);
  if (!session().in_transaction()) raise(provider_error::no_transaction);
  session().rollback();
  return {};
}

Value Connection::close(Arguments arguments) {
  automation::expect_arguments(arguments, 0, 0);
  if (session().in_transaction()) raise(ado_error::in_transaction);
  for (Recordset* const recordset : std::exchange(recordsets_, {})) recordset->close_with_connection();
  session_.reset();
  return {};
}

Value Connection::state() {
  return is_open() ? state::open : state::closed;
}

Value Connection::version() {
  return "2.8";
}

Value Connection::connection_string() {
  return connection_string_;
}

void Connection::set_connection_string(const Value& value) {
  if (is_open()) raise(ado_error::object_open);
  connection_string_ = text_value(value);
}

Value Connection::connection_timeout() {
  return connection_timeout_;
}

void Connection::set_connection_timeout(const Value& value) {
  if (is_open()) raise(ado_error::object_open);
  connection_timeout_ = seconds(value);
}

Value Connection::command_timeout() {
  return command_timeout_.value_or(default_command_timeout);
}

void Connection::set_command_timeout(const Value& value) {
  command_timeout_ = seconds(value);
  if (session_) session_->limit_statements(*command_timeout_);
}

Value Connection::location() {
  return static_cast<std::int32_t>(location_);
}

void Connection::set_location(const Value& value) {
  location_ = ado::cursor_location(integer_value(value));
}

Value Connection::provider() {
  return provider_;
}

void Connection::set_provider(const Value& value) {
  if (is_open()) raise(ado_error::object_open);
  provider_ = text_value(value);
}

// As a client writes it: the collection itself, or one of its items by name or position.
Value Connection::properties(Arguments arguments) {
  automation::expect_arguments(arguments, 0, 1);
  automation::Object all = automation::make_object<Properties>(*this);
  return arguments.empty() ? Value(std::move(all))
                           : all.invoke(automation::default_member, automation::Access::read, arguments);
}

}  // namespace tallyra::standins::ado
