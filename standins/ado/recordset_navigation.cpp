#include "standins/ado/arguments.h"
#include "standins/ado/fields.h"
#include "standins/ado/recordset.h"

// The part of a recordset that works on its open rows.
namespace tallyra::standins::ado {

using automation::Arguments;
using automation::Value;

Value Recordset::fields(Arguments arguments) {
  automation::expect_arguments(arguments, 0, 1);
  cursor();
  // As the default member of the object, with the name of a field: that field.
  if (!arguments.empty()) return field_of(cursor_, arguments[0].get());
  return automation::make_object<Fields>(cursor_);
}

Value Recordset::is_eof() {
  return cursor().after_last();
}

Value Recordset::is_bof() {
  return cursor().before_first();
}

Value Recordset::move_first(Arguments arguments) {
  automation::expect_arguments(arguments, 0, 0);
  cursor().move_first();
  return {};
}

Value Recordset::move_last(Arguments arguments) {
  automation::expect_arguments(arguments, 0, 0);
  cursor().move_last();
  return {};
}

Value Recordset::move_next(Arguments arguments) {
  automation::expect_arguments(arguments, 0, 0);
  cursor().move_next();
  return {};
}

Value Recordset::move_previous(Arguments arguments) {
  automation::expect_arguments(arguments, 0, 0);
  cursor().move_previous();
  return {};
}

Value Recordset::move(Arguments arguments) {
  automation::expect_arguments(arguments, 1, 1);
  cursor().move(integer_value(arguments[0].get()));
  return {};
}

Value Recordset::record_count() {
  const Cursor& rows = cursor();
  return rows.forward_only() ? std::int32_t{-1} : static_cast<std::int32_t>(rows.row_count());
}

Value Recordset::absolute_position() {
  const Cursor& rows = cursor();
  if (rows.forward_only() || rows.row_count() == 0) return position::unknown;
  if (rows.before_first()) return position::before_first;
  if (rows.after_last()) return position::after_last;
  return static_cast<std::int32_t>(rows.absolute_position());
}

void Recordset::set_absolute_position(const Value& value) {
  Cursor& rows = cursor();
  if (rows.forward_only()) raise(ado_error::not_supported);
  rows.go_to(integer_value(value));
}

Value Recordset::refuse_change(Arguments) {
  cursor();
  raise(ado_error::not_supported);
}

}  // namespace tallyra::standins::ado
