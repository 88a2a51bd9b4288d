#include <gtest/gtest.h>

#include "automation/convert.h"
#include "tests/support/ado_double.h"
#include "tests/support/ado_errors.h"
#include "tests/support/shown.h"

namespace tallyra::stage {

using automation::Arguments;
using automation::MemberTable;
using automation::method;
using automation::property;
using automation::read_write;
using automation::Value;

namespace {

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
  throw ado_errors::no_such_item;
}

}  // namespace

ConnectionDouble::ConnectionDouble(AdoScript& script)
    : Named("C" + std::to_string(script.next_number("C"))), script_(script) {
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
  if (!open_) throw ado_errors::object_closed;
}

Value ConnectionDouble::open(Arguments arguments) {
  script_.step(name() + ".Open" + shown(arguments));
  if (open_) throw ado_errors::object_open;
  open_ = true;
  return {};
}

Value ConnectionDouble::execute(Arguments arguments) {
  automation::expect_arguments(arguments, 3, 3);
  if (!arguments[1].is_reference()) throw automation::Error(automation::error_number::type_mismatch);
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
  if (!in_transaction_ && !script_.ignores_needless_commits) throw ado_errors::no_transaction;
  in_transaction_ = false;
  return {};
}

Value ConnectionDouble::roll_back(Arguments) {
  script_.step(name() + ".RollbackTrans");
  if (!in_transaction_) throw ado_errors::no_transaction;
  in_transaction_ = false;
  return {};
}

Value ConnectionDouble::close(Arguments) {
  script_.step(name() + ".Close");
  require_open();
  if (in_transaction_) throw ado_errors::in_a_transaction;
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

}  // namespace tallyra::stage
