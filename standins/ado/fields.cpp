#include "standins/ado/fields.h"

#include <string>

#include "standins/ado/arguments.h"

namespace tallyra::standins::ado {

using automation::Value;

automation::Object field_of(const std::shared_ptr<const Cursor>& cursor, const Value& name_or_index) {
  // A field of another recordset stands for the name that is its value.
  if (name_or_index.is_object()) return field_of(cursor, Value(text_value(name_or_index)));
  const auto* name = name_or_index.get_if<std::string>();
  return automation::make_object<Field>(
      cursor, name ? cursor->column_index(*name) : cursor->column_index(integer_value(name_or_index)));
}

const automation::MemberTable<Fields>& Fields::members() {
  static const automation::MemberTable<Fields> table{
      {automation::default_member, "Item", automation::method<&Fields::item>},
      {1, "Count", automation::property<&Fields::count>},
  };
  return table;
}

Value Fields::item(automation::Arguments arguments) {
  automation::expect_arguments(arguments, 1, 1);
  return field_of(cursor_, arguments[0].get());
}

Value Fields::count() {
  return static_cast<std::int32_t>(item_count());
}

Value Fields::item_at(std::size_t position) const {
  return automation::make_object<Field>(cursor_, position);
}

const automation::MemberTable<Field>& Field::members() {
  static const automation::MemberTable<Field> table{
      {automation::default_member, "Value", automation::read_write<&Field::value, &Field::set_value>},
      {1, "Name", automation::property<&Field::name>},
      {2, "Type", automation::property<&Field::type>},
      {3, "DefinedSize", automation::property<&Field::defined_size>},
      {4, "Precision", automation::property<&Field::precision>},
      {5, "NumericScale", automation::property<&Field::numeric_scale>},
  };
  return table;
}

void Field::set_value(const Value&) {
  cursor_->columns();  // closed comes before read-only
  raise(ado_error::not_supported);
}

Value Field::name() {
  return column().name;
}

Value Field::type() {
  return static_cast<std::int32_t>(column().type);
}

Value Field::defined_size() {
  return static_cast<std::int32_t>(column().defined_size);
}

Value Field::precision() {
  return column().precision;
}

Value Field::numeric_scale() {
  return column().scale;
}

}  // namespace tallyra::standins::ado
