#include "frame/database.h"

#include "automation/convert.h"
#include "automation/create.h"

namespace tallyra::frame {
namespace {

constexpr std::int32_t unspecified_options = -1;
constexpr std::int32_t state_open = 1;

automation::Value number(auto enumerator) {
  return static_cast<std::int32_t>(enumerator);
}

}  // namespace

Connection::Connection() : object_(automation::create("ADODB.Connection")) {}

void Connection::set_command_timeout(std::int32_t seconds) {
  object_.put("CommandTimeout", seconds);
}

void Connection::open(const std::string& connection_string) {
  object_.call("Open", connection_string, "", "", unspecified_options);
  opened_ = true;
}

bool Connection::is_open() const {
  return automation::equals_number(object_.get("State"), state_open);
}

void Connection::execute(const automation::Value& statement) {
  automation::Value records_affected;
  execute_.of(object_).call(statement, automation::ref(records_affected), unspecified_options);
}

void Connection::begin() {
  object_.call("BeginTrans");
}

void Connection::commit() {
  object_.call("CommitTrans");
}

void Connection::roll_back() {
  object_.call("RollbackTrans");
}

void Connection::close() {
  object_.call("Close");
  opened_ = false;
}

Recordset::Recordset() : object_(automation::create("ADODB.Recordset")) {}

void Recordset::set_cursor_location(CursorLocation location) {
  object_.put("CursorLocation", number(location));
}

void Recordset::open(std::string statement, const Connection& connection, CursorType cursor, LockType lock) {
  object_.call("Open", std::move(statement), connection.object(), number(cursor), number(lock),
               unspecified_options);
  opened_ = true;
}

bool Recordset::at_end() {
  return automation::to_boolean(at_end_.of(object_).get());
}

void Recordset::move_first() {
  object_.call("MoveFirst");
}

void Recordset::move_last() {
  object_.call("MoveLast");
}

void Recordset::move_next() {
  move_next_.of(object_).call();
}

void Recordset::close() {
  object_.call("Close");
  opened_ = false;
}

automation::Object Recordset::fields() const {
  return automation::to_object(object_.get("Fields"));
}

Field Recordset::field(std::string_view name) const {
  return Field(automation::to_object(fields().call("Item", name)));
}

void Recordset::replace(automation::Object object) {
  if (object == object_) return;
  object_ = std::move(object);
  at_end_ = LazyMember("EOF");
  move_next_ = LazyMember("MoveNext");
}

}  // namespace tallyra::frame
