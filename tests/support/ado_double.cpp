#include "tests/support/ado_double.h"

#include <gtest/gtest.h>

#include "automation/convert.h"
#include "automation/error.h"
#include "tests/support/shown.h"

namespace tallyra::stage {
namespace {

using automation::Arguments;
using automation::Error;
using automation::MemberTable;
using automation::method;
using automation::Object;
using automation::property;
using automation::read_write;
using automation::Value;

const Error object_open{3705, "Operation is not allowed when the object is open."};
const Error object_closed{3704, "Operation is not allowed when the object is closed."};
const Error connection_unusable{3709, "The connection cannot be used to perform this operation."};
const Error in_a_transaction{3246, "Connection object cannot be explicitly closed while in a transaction."};
const Error no_transaction{-2147168242, "No transaction is active."};
const Error no_current_record{3021, "Either BOF or EOF is True."};
const Error wrong_arguments{3001,
                            "Arguments are of the wrong type, are out of acceptable range, or are in "
                            "conflict with one another."};
const Error no_such_item{3265, "Item cannot be found in the collection."};

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
    throw no_such_item;
  }
  Value count() {
    recordset_.script().step(recordset_.name() + ".Fields.Count", AdoScript::Line::hidden);
    return static_cast<std::int32_t>(recordset_.rows().columns.size());
  }

 private:
  Object keep_;
  RecordsetDouble& recordset_;
};

// What a connection tells of itself, by name.
class PropertiesDouble : public automation::Implements<PropertiesDouble> {
 public:
  explicit PropertiesDouble(const AdoScript& script) : script_(script) {}
  static const MemberTable<PropertiesDouble>& members() {
    static const MemberTable<PropertiesDouble> table{{0, "Item", method<&PropertiesDouble::item>}};
    return table;
  }
  Value item(Arguments arguments);

 private:
  const AdoScript& script_;
};

class PropertyDouble : public automation::Implements<PropertyDouble> {
 public:
  explicit PropertyDouble(Value value) : value_(std::move(value)) {}
  static const MemberTable<PropertyDouble>& members() {
    static const MemberTable<PropertyDouble> table{{0, "Value", property<&PropertyDouble::value>}};
    return table;
  }
  Value value() { return value_; }

 private:
  Value value_;
};

Value PropertiesDouble::item(Arguments arguments) {
  const std::string name = automation::to_text(arguments[0].get());
  const auto found = script_.properties.find(name);
  if (found != script_.properties.end()) return automation::make_object<PropertyDouble>(found->second);
  ADD_FAILURE() << "a property that the script was not told about: " << name;
  throw no_such_item;
}

std::string next_name(AdoScript& script, const char* kind) {
  return kind + std::to_string(script.next_number(kind));
}

}  // namespace

ConnectionDouble::ConnectionDouble(AdoScript& script) : Named(next_name(script, "C")), script_(script) {
  script_.born();
}
ConnectionDouble::~ConnectionDouble() {
  script_.gone();
}

const MemberTable<ConnectionDouble>& ConnectionDouble::members() {
  static const MemberTable<ConnectionDouble> table{
      {1, "Open", method<&ConnectionDouble::open>},
      {2, "Execute", method<&ConnectionDouble::execute>},
      {3, "BeginTrans", method<&ConnectionDouble::begin>},
      {4, "CommitTrans", method<&ConnectionDouble::commit>},
      {5, "RollbackTrans", method<&ConnectionDouble::roll_back>},
      {6, "Close", method<&ConnectionDouble::close>},
      {7, "State", property<&ConnectionDouble::state>},
      {8, "CommandTimeout",
       read_write<&ConnectionDouble::command_timeout, &ConnectionDouble::set_command_timeout>},
      {9, "Properties", property<&ConnectionDouble::properties>},
  };
  return table;
}

void ConnectionDouble::require_open() const {
  if (!open_) throw object_closed;
}

Value ConnectionDouble::open(Arguments arguments) {
  script_.step(name() + ".Open" + shown(arguments));
  if (open_) throw object_open;
  open_ = true;
  return {};
}

Value ConnectionDouble::execute(Arguments arguments) {
  automation::expect_arguments(arguments, 3, 3);
  if (!arguments[1].is_reference()) throw Error(automation::error_number::type_mismatch);
  const std::string statement = automation::to_text(arguments[0].get());
  script_.step(name() + ".Execute " + statement + " | " + shown(arguments[2].get()));
  require_open();
  AdoScript::Executed executed = script_.executed(statement);
  arguments[1].set(executed.affected);
  if (!executed.found) return {};
  auto recordset = automation::make_object<RecordsetDouble>(script_);
  static_cast<RecordsetDouble*>(recordset.dispatch())->stand_on(std::move(*executed.found));
  return recordset;
}

Value ConnectionDouble::begin(Arguments) {
  script_.step(name() + ".BeginTrans");
  require_open();
  in_transaction_ = true;
  return 1;
}

Value ConnectionDouble::commit(Arguments) {
  script_.step(name() + ".CommitTrans");
  if (!in_transaction_ && !script_.ignores_needless_commits) throw no_transaction;
  in_transaction_ = false;
  return {};
}

Value ConnectionDouble::roll_back(Arguments) {
  script_.step(name() + ".RollbackTrans");
  if (!in_transaction_) throw no_transaction;
  in_transaction_ = false;
  return {};
}

Value ConnectionDouble::close(Arguments) {
  script_.step(name() + ".Close");
  require_open();
  if (in_transaction_) throw in_a_transaction;
  open_ = false;
  return {};
}

Value ConnectionDouble::state() {
  script_.step(name() + ".State");
  return open_ ? 1 : 0;
}

Value ConnectionDouble::command_timeout() {
  return 30;
}

void ConnectionDouble::set_command_timeout(const Value& value) {
  script_.step(name() + ".CommandTimeout = " + shown(value));
}

Value ConnectionDouble::properties() {
  return automation::make_object<PropertiesDouble>(script_);
}

RecordsetDouble::RecordsetDouble(AdoScript& script) : Named(next_name(script, "R")), script_(script) {
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
  if (!rows_) throw object_closed;
}

Value RecordsetDouble::open(Arguments arguments) {
  automation::expect_arguments(arguments, 5, 5);
  const std::string statement = automation::to_text(arguments[0].get());
  script_.step(name() + ".Open " + statement + " |" + shown(arguments.subspan(1)));
  if (rows_) throw object_open;
  const Object connection = automation::to_object(arguments[1].get());
  const auto* used = dynamic_cast<const ConnectionDouble*>(connection.dispatch());
  if (!used || !used->is_open()) throw connection_unusable;
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
  if (rows_->rows.empty()) throw no_current_record;
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
  if (row_ >= rows_->rows.size()) throw no_current_record;
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
  if (rows_) throw object_open;
  client_side_ = automation::equals_number(value, 3);
}

Value RecordsetDouble::use_active_connection(RecordsetDouble& recordset, automation::Access access,
                                             Arguments arguments) {
  if (access == automation::Access::read) return Object();
  automation::expect_arguments(arguments, 1, 1);
  recordset.script_.step(recordset.name() + ".ActiveConnection = " + shown(arguments[0].get()));
  if (access != automation::Access::put_reference) throw wrong_arguments;
  if (recordset.rows_ && !recordset.client_side_) throw object_open;
  return {};
}

Value RecordsetDouble::value_of(std::size_t column) const {
  require_open();
  if (row_ >= rows_->rows.size()) throw no_current_record;
  return rows_->rows[row_].at(column);
}

}  // namespace tallyra::stage
