#include "standins/ado/recordset.h"

#include <utility>

#include "standins/ado/arguments.h"
#include "standins/ado/connection.h"

namespace tallyra::standins::ado {

using automation::Arguments;
using automation::Value;

const automation::MemberTable<Recordset>& Recordset::members() {
  using R = Recordset;
  static const automation::MemberTable<R> table{
      {automation::default_member, "Fields", automation::method<&R::fields>},
      {1, "Open", automation::method<&R::open>},
      {2, "Close", automation::method<&R::close>},
      {3, "Requery", automation::method<&R::requery>},
      {4, "EOF", automation::property<&R::is_eof>},
      {5, "BOF", automation::property<&R::is_bof>},
      {6, "MoveFirst", automation::method<&R::move_first>},
      {7, "MoveLast", automation::method<&R::move_last>},
      {8, "MoveNext", automation::method<&R::move_next>},
      {9, "MovePrevious", automation::method<&R::move_previous>},
      {10, "Move", automation::method<&R::move>},
      {11, "RecordCount", automation::property<&R::record_count>},
      {12, "AbsolutePosition", automation::read_write<&R::absolute_position, &R::set_absolute_position>},
      {13, "State", automation::property<&R::state>},
      {14, "ActiveConnection", automation::read_write<&R::active_connection, &R::set_active_connection>},
      {15, "Source", automation::read_write<&R::source, &R::set_source>},
      {16, "CursorLocation", automation::read_write<&R::location, &R::set_location>},
      {17, "CursorType", automation::read_write<&R::type, &R::set_type>},
      {18, "LockType", automation::read_write<&R::lock, &R::set_lock>},
      {19, "AddNew", automation::method<&R::refuse_change>},
      {20, "Update", automation::method<&R::refuse_change>},
      {21, "Delete", automation::method<&R::refuse_change>},
      {22, "UpdateBatch", automation::method<&R::refuse_change>},
  };
  return table;
}

Recordset::Recordset(Connection& connection, std::string_view source, std::unique_ptr<RowSet> rows)
    : connection_(&connection), source_(source) {
  adopt(std::move(rows));
}

Recordset::~Recordset() {
  // Fields that a client still holds go on reading the row they are at.
  if (cursor_) detach();
}

Cursor& Recordset::cursor() const {
  if (!cursor_) raise(ado_error::object_closed);
  return *cursor_;
}

void Recordset::require_closed() const {
  if (cursor_) raise(ado_error::object_open);
}

Connection& Recordset::usable_connection() const {
  auto* const connection = static_cast<Connection*>(connection_.dispatch());
  if (!connection || !connection->is_open()) raise(ado_error::invalid_connection);
  return *connection;
}

void Recordset::detach() {
  if (auto* const connection = static_cast<Connection*>(connection_.dispatch())) connection->detach(*this);
}

Value Recordset::open(Arguments arguments) {
  automation::expect_arguments(arguments, 0, 5);
  require_closed();
  auto new_source = text_argument(arguments, 0);
  const auto new_type = integer_argument(arguments, 2);
  const auto new_lock = integer_argument(arguments, 3);
  const std::int32_t options = execute_options(integer_argument(arguments, 4).value_or(unspecified));
  const CursorType type = new_type && *new_type != unspecified ? cursor_type(*new_type) : type_;
  const LockType lock = new_lock && *new_lock != unspecified ? lock_type(*new_lock) : lock_;
  if (const Value* const connection = automation::argument_at(arguments, 1)) connect(*connection);
  if (new_source) source_ = std::move(*new_source);
  type_ = type;
  lock_ = lock;
  if (auto rows = fetch(options)) adopt(std::move(rows));
  return {};
}

std::unique_ptr<RowSet> Recordset::fetch(std::int32_t options) const {
  Connection& connection = usable_connection();
  std::string storage;
  return connection.session().run(statement_of(source_, options, storage), false).rows;
}

void Recordset::adopt(std::unique_ptr<RowSet> rows) {
  auto& connection = *static_cast<Connection*>(connection_.dispatch());
  if (!location_) location_ = connection.cursor_location();
  const bool forward_only = location_ == CursorLocation::server && type_ == CursorType::forward_only;
  auto cursor = std::make_shared<Cursor>(std::move(rows), forward_only);
  connection.attach(*this);
  cursor_ = std::move(cursor);
  if (!forward_only) type_ = CursorType::fixed;
}

Value Recordset::close(Arguments arguments) {
  automation::expect_arguments(arguments, 0, 0);
  cursor().close();
  cursor_.reset();
  detach();
  return {};
}

void Recordset::close_with_connection() {
  cursor_->close();
  cursor_.reset();
}

Value Recordset::requery(Arguments arguments) {
  automation::expect_arguments(arguments, 0, 1);
  const std::int32_t options = execute_options(integer_argument(arguments, 0).value_or(unspecified));
  Cursor& current = cursor();
  auto rows = fetch(options);
  if (rows && rows->columns().size() == current.columns().size()) {
    current.restart(std::move(rows));
  } else {
    close({});
    if (rows) adopt(std::move(rows));
  }
  return {};
}

Value Recordset::state() {
  return cursor_ ? state::open : state::closed;
}

Value Recordset::active_connection() {
  return connection_;
}

void Recordset::set_active_connection(const Value& value) {
  if (cursor_ && location_ != CursorLocation::client) raise(ado_error::object_open);
  connect(value);
}

void Recordset::connect(const Value& value) {
  automation::Object connection;
  if (const auto* const object = value.get_if<automation::Object>()) {
    if (*object && !dynamic_cast<Connection*>(object->dispatch())) raise(ado_error::invalid_argument);
    connection = *object;
  } else if (!value.is_empty()) {
    connection = automation::make_object<Connection>();
    static_cast<Connection*>(connection.dispatch())->open_with(text_value(value), {}, {});
  }
  if (cursor_) {
    // A detached client-side recordset may be given a connection again, which must be open.
    auto* const next = static_cast<Connection*>(connection.dispatch());
    if (next && !next->is_open()) raise(ado_error::invalid_connection);
    detach();
    if (next) next->attach(*this);
  }
  connection_ = std::move(connection);
}

Value Recordset::source() {
  return source_;
}

void Recordset::set_source(const Value& value) {
  require_closed();
  source_ = text_value(value);
}

Value Recordset::location() {
  return static_cast<std::int32_t>(location_.value_or(CursorLocation::server));
}

void Recordset::set_location(const Value& value) {
  require_closed();
  location_ = cursor_location(integer_value(value));
}

Value Recordset::type() {
  return static_cast<std::int32_t>(type_);
}

void Recordset::set_type(const Value& value) {
  require_closed();
  type_ = cursor_type(integer_value(value));
}

Value Recordset::lock() {
  return static_cast<std::int32_t>(lock_);
}

void Recordset::set_lock(const Value& value) {
  require_closed();
  lock_ = lock_type(integer_value(value));
}

}  // namespace tallyra::standins::ado
