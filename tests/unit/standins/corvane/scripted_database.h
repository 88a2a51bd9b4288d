#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "automation/convert.h"
#include "automation/error.h"
#include "automation/local/local_classes.h"
#include "automation/member_table.h"

// A database that answers statements from a function and writes down what was asked of it: for what a real
// one does too rarely, and for the texts of statements.
namespace tallyra::standins::corvane::testing {

using Row = std::map<std::string, automation::Value>;

struct Reply {
  std::vector<Row> rows;
  std::int32_t affected = 0;
};

struct Script {
  std::function<Reply(const std::string& statement)> answer;  // may throw Error
  std::map<std::string, std::string> properties;              // of every connection
  std::string log;                                            // one call per line
  int connections = 0;                                        // that exist
};

class RowField : public automation::Implements<RowField> {
 public:
  explicit RowField(automation::Value value) : value_(std::move(value)) {}
  static const automation::MemberTable<RowField>& members() {
    static const automation::MemberTable<RowField> table{
        {0, "Value", automation::property<&RowField::value>}};
    return table;
  }
  automation::Value value() { return value_; }

 private:
  automation::Value value_;
};

// A recordset that is its own collection of fields.
class RowsDouble : public automation::Implements<RowsDouble> {
 public:
  explicit RowsDouble(std::vector<Row> rows) : rows_(std::move(rows)) {}
  static const automation::MemberTable<RowsDouble>& members() {
    static const automation::MemberTable<RowsDouble> table{
        {1, "EOF", automation::property<&RowsDouble::at_end>},
        {2, "MoveNext", automation::method<&RowsDouble::move_next>},
        {3, "Close", automation::method<&RowsDouble::close>},
        {4, "Fields", automation::property<&RowsDouble::fields>},
        {5, "Item", automation::method<&RowsDouble::item>},
    };
    return table;
  }
  automation::Value at_end() { return position_ == rows_.size(); }
  automation::Value move_next(automation::Arguments) {
    ++position_;
    return {};
  }
  automation::Value close(automation::Arguments) { return {}; }
  automation::Value fields() { return automation::Object(this); }
  automation::Value item(automation::Arguments arguments) {
    return automation::make_object<RowField>(rows_.at(position_).at(automation::to_text(arguments[0].get())));
  }

 private:
  std::vector<Row> rows_;
  std::size_t position_ = 0;
};

class PropertiesDouble : public automation::Implements<PropertiesDouble> {
 public:
  explicit PropertiesDouble(const Script& script) : script_(script) {}
  static const automation::MemberTable<PropertiesDouble>& members() {
    static const automation::MemberTable<PropertiesDouble> table{
        {0, "Item", automation::method<&PropertiesDouble::item>}};
    return table;
  }
  automation::Value item(automation::Arguments arguments) {
    return automation::make_object<RowField>(script_.properties.at(automation::to_text(arguments[0].get())));
  }

 private:
  const Script& script_;
};

class ConnectionDouble : public automation::Implements<ConnectionDouble> {
 public:
  explicit ConnectionDouble(Script& script) : script_(script) { ++script_.connections; }
  ~ConnectionDouble() override { --script_.connections; }
  static const automation::MemberTable<ConnectionDouble>& members() {
    static const automation::MemberTable<ConnectionDouble> table{
        {1, "Open", automation::method<&ConnectionDouble::open>},
        {2, "Execute", automation::method<&ConnectionDouble::execute>},
        {3, "BeginTrans", automation::method<&ConnectionDouble::begin>},
        {4, "CommitTrans", automation::method<&ConnectionDouble::commit>},
        {5, "RollbackTrans", automation::method<&ConnectionDouble::roll_back>},
        {6, "Close", automation::method<&ConnectionDouble::close>},
        {7, "Properties", automation::property<&ConnectionDouble::properties>},
    };
    return table;
  }
  automation::Value open(automation::Arguments arguments) {
    return log("Open " + automation::to_text(arguments[0].get()));
  }
  automation::Value execute(automation::Arguments arguments) {
    const std::string statement = automation::to_text(arguments[0].get());
    log(statement);
    const Reply reply = script_.answer(statement);
    arguments[1].set(reply.affected);
    return automation::make_object<RowsDouble>(reply.rows);
  }
  automation::Value begin(automation::Arguments) { return log("BeginTrans"); }
  automation::Value commit(automation::Arguments) { return log("CommitTrans"); }
  automation::Value roll_back(automation::Arguments) { return log("RollbackTrans"); }
  automation::Value close(automation::Arguments) { return log("Close"); }
  automation::Value properties() { return automation::make_object<PropertiesDouble>(script_); }

 private:
  automation::Value log(const std::string& line) {
    script_.log += line + '\n';
    return {};
  }

  Script& script_;
};

// Takes the place of ADODB.Connection for as long as it lives.
class ScriptedDatabase : public Script {
 public:
  explicit ScriptedDatabase(std::function<Reply(const std::string&)> answers)
      : class_("ADODB.Connection", [this] { return connection(); }) {
    answer = std::move(answers);
  }
  automation::Object connection() { return automation::make_object<ConnectionDouble>(*this); }

 private:
  automation::local::ScopedClass class_;
};

}  // namespace tallyra::standins::corvane::testing
