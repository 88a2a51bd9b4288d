#include "frame/recordset.h"

#include <array>

#include "automation/convert.h"
#include "automation/create.h"

namespace tallyra::frame {
namespace {

automation::Value number(auto enumerator) {
  return static_cast<std::int32_t>(enumerator);
}

}  // namespace

Recordset::Recordset() : object_(automation::create("ADODB.Recordset")) {}

void Recordset::set_cursor_location(CursorLocation location) {
  object_.put("CursorLocation", number(location));
  location_ = location;
  location_due_ = false;
}

void Recordset::open(const automation::Value& statement, const Connection& connection, CursorType cursor,
                     LockType lock) {
  if (location_due_) set_cursor_location(*location_);
  members_.open.of(object_).call(statement, connection.object(), number(cursor), number(lock),
                                 unspecified_options);
  opened_ = true;
}

void Recordset::detach() {
  if (!members_.active_connection) members_.active_connection = object_.resolve("ActiveConnection");
  const automation::Value none{automation::Object()};
  const std::array<automation::Argument, 1> list{automation::Argument(none)};
  object_.invoke(*members_.active_connection, automation::Access::put_reference, list);
}

bool Recordset::at_end() {
  return automation::to_boolean(members_.at_end.of(object_).get());
}

void Recordset::move_first() {
  object_.call("MoveFirst");
}

void Recordset::move_last() {
  object_.call("MoveLast");
}

void Recordset::move_next() {
  members_.move_next.of(object_).call();
}

void Recordset::close() {
  members_.close.of(object_).call();
  opened_ = false;
}

automation::Object Recordset::fields() const {
  return automation::to_object(members_.fields.of(object_).get());
}

Field Recordset::field(std::string_view name) const {
  return Field(automation::to_object(fields().call("Item", name)));
}

void Recordset::replace(automation::Object object) {
  if (object == object_) return;
  object_ = std::move(object);
  members_ = {};
  location_due_ = location_.has_value();
}

automation::Value RepeatedField::value(const Recordset& recordset) {
  const automation::Object fields = recordset.fields();
  if (!item_) item_ = fields.resolve("Item");
  const std::array<automation::Argument, 1> column{automation::Argument(column_)};
  const automation::Object field =
      automation::to_object(fields.invoke(*item_, automation::Access::read, column));
  if (!value_) value_ = field.resolve("Value");
  return field.invoke(*value_, automation::Access::read, {});
}

}  // namespace tallyra::frame
