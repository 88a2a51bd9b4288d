#include <gtest/gtest.h>

#include "automation/convert.h"
#include "tests/support/ado_double.h"
#include "tests/support/ado_errors.h"
#include "tests/support/shown.h"

namespace tallyra::stage {

using automation::Arguments;
using automation::MemberTable;
using automation::method;
using automation::Object;
using automation::property;
using automation::read_write;
using automation::Value;

namespace {

class FieldDouble : public automation::Implements<FieldDouble>, public Named {
 public:
  FieldDouble(RecordsetDouble& recordset, std::string name, std::size_t column)
      : Named(recordset.name() + "(" + name + ")"),
        keep_(&recordset),
        recordset_(recordset),
        column_name_(std::move(name)),
        column_(column) {}
  static const MemberTable<FieldDouble>& members() {
    static const MemberTable<FieldDouble> table{{0, "Value", property<&FieldDouble::value>},
                                                {1, "Name", property<&FieldDouble::column_name>},
                                                {2, "Type", property<&FieldDouble::type>}};
    return table;
  }
  Value value() {
    recordset_.script().step(name() + ".Value", AdoScript::Line::hidden);
    return recordset_.value_of(column_);
  }
  Value column_name() {
    recordset_.script().step(name() + ".Name", AdoScript::Line::hidden);
    return column_name_;
  }
  Value type() {
    recordset_.script().step(name() + ".Type", AdoScript::Line::hidden);
    return recordset_.rows().types.at(column_);
  }

 private:
  Object keep_;
  RecordsetDouble& recordset_;
  std::string column_name_;
  std::size_t column_;
};

class FieldsDouble : public automation::Implements<FieldsDouble> {
 public:
  explicit FieldsDouble(RecordsetDouble& recordset) : keep_(&recordset), recordset_(recordset) {}
  static const MemberTable<FieldsDouble>& members() {
    static const MemberTable<FieldsDouble> table{{0, "Item", method<&FieldsDouble::item>},
                                                 {1, "Count", property<&FieldsDouble::count>}};
    return table;
  }
  Value item(Arguments arguments) {
    automation::expect_arguments(arguments, 1, 1);
    const Value& key = arguments[0].get();
    recordset_.script().step(recordset_.name() + ".Fields(" + shown(key) + ")", AdoScript::Line::hidden);
    const auto& columns = recordset_.rows().columns;
    for (std::size_t i = 0; i < columns.size(); ++i)
      if (key.is_text() ? automation::equals_folded(columns[i], automation::to_text(key))
                        : automation::equals_number(key, static_cast<double>(i)))
        return automation::make_object<FieldDouble>(recordset_, columns[i], i);
    if (recordset_.script().takes_any_query() && columns.empty())
      return automation::make_object<FieldDouble>(recordset_, automation::to_text(key), columns.size());
    ADD_FAILURE() << "a field that the stage was not told about: " << shown(key);
    throw ado_errors::no_such_item;
  }
  Value count() {
    recordset_.script().step(recordset_.name() + ".Fields.Count", AdoScript::Line::hidden);
    return static_cast<std::int32_t>(recordset_.rows().columns.size());
  }

 private:
  Object keep_;
  RecordsetDouble& recordset_;
};

}  // namespace

RecordsetDouble::RecordsetDouble(AdoScript& script)
    : Named("R" + std::to_string(script.next_number("R"))), script_(script) {
  script_.born();
}
RecordsetDouble::~RecordsetDouble() {
  script_.gone();
}

const MemberTable<RecordsetDouble>& RecordsetDouble::members() {
  static const MemberTable<RecordsetDouble> table{
      {1, "Open", method<&RecordsetDouble::open>},
      {2, "Close", method<&RecordsetDouble::close>},
      {3, "EOF", property<&RecordsetDouble::at_end>},
      {4, "MoveFirst", method<&RecordsetDouble::move_first>},
      {5, "MoveLast", method<&RecordsetDouble::move_last>},
      {6, "MoveNext", method<&RecordsetDouble::move_next>},
      {7, "Fields", property<&RecordsetDouble::fields>},
      {8, "CursorLocation",
       read_write<&RecordsetDouble::cursor_location, &RecordsetDouble::set_cursor_location>},
      {9, "ActiveConnection", &RecordsetDouble::use_active_connection},
  };
  return table;
}

void RecordsetDouble::stand_on(Rows rows) {
  own_rows_ = std::move(rows);
  rows_ = &own_rows_;
}

void RecordsetDouble::require_open() const {
  if (!rows_) throw ado_errors::object_closed;
}

Value RecordsetDouble::open(Arguments arguments) {
  automation::expect_arguments(arguments, 5, 5);
  const std::string statement = automation::to_text(arguments[0].get());
  script_.step(name() + ".Open " + statement + " |" + shown(arguments.subspan(1)));
  if (rows_) throw ado_errors::object_open;
  const Object connection = automation::to_object(arguments[1].get());
  const auto* used = dynamic_cast<const ConnectionDouble*>(connection.dispatch());
  if (!used || !used->is_open()) throw ado_errors::connection_unusable;
  rows_ = &script_.opened(statement);
  row_ = 0;
  return {};
}

Value RecordsetDouble::close(Arguments) {
  script_.step(name() + ".Close");
  require_open();
  rows_ = nullptr;
  return {};
}

Value RecordsetDouble::at_end() {
  script_.step(name() + ".EOF", AdoScript::Line::hidden);
  require_open();
  return row_ >= rows_->rows.size();
}

Value RecordsetDouble::move(const char* how, std::size_t row) {
  script_.step(name() + how);
  require_open();
  if (rows_->rows.empty()) throw ado_errors::no_current_record;
  row_ = row;
  return {};
}

Value RecordsetDouble::move_first(Arguments) {
  return move(".MoveFirst", 0);
}

Value RecordsetDouble::move_last(Arguments) {
  return move(".MoveLast", rows_ && !rows_->rows.empty() ? rows_->rows.size() - 1 : 0);
}

Value RecordsetDouble::move_next(Arguments) {
  script_.step(name() + ".MoveNext", AdoScript::Line::hidden);
  require_open();
  if (row_ >= rows_->rows.size()) throw ado_errors::no_current_record;
  ++row_;
  return {};
}

Value RecordsetDouble::fields() {
  script_.step(name() + ".Fields", AdoScript::Line::hidden);
  require_open();
  return automation::make_object<FieldsDouble>(*this);
}

Value RecordsetDouble::cursor_location() {
  return 2;
}

void RecordsetDouble::set_cursor_location(const Value& value) {
  script_.step(name() + ".CursorLocation = " + shown(value));
  if (rows_) throw ado_errors::object_open;
  client_side_ = automation::equals_number(value, 3);
}

Value RecordsetDouble::use_active_connection(RecordsetDouble& recordset, automation::Access access,
                                             Arguments arguments) {
  if (access == automation::Access::read) return Object();
  automation::expect_arguments(arguments, 1, 1);
  recordset.script_.step(recordset.name() + ".ActiveConnection = " + shown(arguments[0].get()));
  if (access != automation::Access::put_reference) throw ado_errors::wrong_arguments;
  if (recordset.rows_ && !recordset.client_side_) throw ado_errors::object_open;
  return {};
}

Value RecordsetDouble::value_of(std::size_t column) const {
  require_open();
  if (row_ >= rows_->rows.size()) throw ado_errors::no_current_record;
  return rows_->rows[row_].at(column);
}

}  // namespace tallyra::stage
