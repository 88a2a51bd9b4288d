#include "standins/corvane/database.h"

#include "automation/convert.h"
#include "automation/create.h"

namespace tallyra::standins::corvane {
namespace {

constexpr std::int32_t text_command = 1;
constexpr std::int32_t unspecified = -1;

automation::Value run(const automation::Object& connection, std::string_view statement,
                      automation::Value& affected) {
  return connection.call("Execute", statement, automation::ref(affected), text_command);
}

}  // namespace

automation::Object open_connection(const std::string& connection_string) {
  automation::Object connection = automation::create("ADODB.Connection");
  connection.call("Open", connection_string, "", "", unspecified);
  return connection;
}

std::int32_t execute(const automation::Object& connection, std::string_view statement) {
  automation::Value affected;
  run(connection, statement, affected);
  return automation::to_int32(affected);
}

Query::Query(const automation::Object& connection, std::string_view statement) {
  automation::Value affected;
  recordset_ = automation::to_object(run(connection, statement, affected));
  fields_ = automation::to_object(recordset_.get("Fields"));
}

bool Query::at_end() const {
  return automation::to_boolean(recordset_.get("EOF"));
}

void Query::move_next() const {
  recordset_.call("MoveNext");
}

automation::Value Query::value(std::string_view column) const {
  return automation::to_object(fields_.call("Item", column)).get("Value");
}

void Query::close() const {
  recordset_.call("Close");
}

double number_or_zero(const automation::Value& value) {
  return value.is_null() ? 0 : automation::to_double(value);
}

void append_quoted(std::string& out, std::string_view text) {
  out += '\'';
  for (std::size_t quote; (quote = text.find('\'')) != std::string_view::npos;
       text.remove_prefix(quote + 1)) {
    out += text.substr(0, quote);
    out += "''";
  }
  out += text;
  out += '\'';
}

std::string quoted_text(std::string_view text) {
  std::string out;
  out.reserve(text.size() + 2);
  append_quoted(out, text);
  return out;
}

}  // namespace tallyra::standins::corvane
