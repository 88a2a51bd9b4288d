#pragma once

#include <cstddef>
#include <memory>
#include <utility>

#include "automation/enumerable.h"
#include "standins/ado/ado_object.h"
#include "standins/ado/cursor.h"

namespace tallyra::standins::ado {

// The columns of an open recordset: Count, Item by name or by position from 0 (the default member), For Each.
class Fields : public AdoObject<Fields>, public automation::Enumerable {
 public:
  static const automation::MemberTable<Fields>& members();

  explicit Fields(std::shared_ptr<const Cursor> cursor) : cursor_(std::move(cursor)) {}

  automation::Value item(automation::Arguments arguments);
  automation::Value count();

  std::size_t item_count() const override { return cursor_->columns().size(); }
  automation::Value item_at(std::size_t position) const override;

 private:
  std::shared_ptr<const Cursor> cursor_;
};

// One column: reads the recordset's current row, wherever it has moved since.
class Field : public AdoObject<Field> {
 public:
  static const automation::MemberTable<Field>& members();

  Field(std::shared_ptr<const Cursor> cursor, std::size_t column)
      : cursor_(std::move(cursor)), column_(column) {}

  automation::Value value() { return cursor_->value(column_); }
  // Recordsets here are read-only: throws 3251.
  void set_value(const automation::Value& value);
  automation::Value name();
  automation::Value type();
  automation::Value defined_size();
  automation::Value precision();
  automation::Value numeric_scale();

 private:
  const Column& column() const { return cursor_->columns()[column_]; }

  std::shared_ptr<const Cursor> cursor_;
  std::size_t column_;
};

// The field that a client asks for by name or by position from 0. Throws 3265.
automation::Object field_of(const std::shared_ptr<const Cursor>& cursor,
                            const automation::Value& name_or_index);

}  // namespace tallyra::standins::ado
