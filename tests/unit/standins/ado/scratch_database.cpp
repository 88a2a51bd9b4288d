#include "tests/unit/standins/ado/scratch_database.h"

#include <cstdlib>
#include <fstream>

#include "automation/convert.h"
#include "standins/ado/local_classes.h"

namespace tallyra::standins::ado::test {

ScratchDatabase::ScratchDatabase() {
  register_classes();
  make_database("test.db");
}

void ScratchDatabase::make_database(std::string_view file) const {
  std::ofstream(path(file), std::ios::app);
}

std::string ScratchDatabase::path(std::string_view file) const {
  return folder_.file(file);
}

std::string ScratchDatabase::connection_string(std::string_view file) const {
  return (std::getenv("TALLYRA_TEST_OVER_ODBC") ? "Provider=MSDASQL;" : "") + odbc_string(file);
}

std::string ScratchDatabase::odbc_string(std::string_view file) const {
  return "DRIVER={SQLite3};Database=" + path(file) + ";SyncPragma=OFF;Timeout=100";
}

Object ScratchDatabase::open_connection() const {
  return open_connection("test.db");
}

Object ScratchDatabase::open_connection(std::string_view file) const {
  make_database(file);
  Object connection = automation::create("ADODB.Connection");
  connection.call("Open", connection_string(file), "", "", -1);
  return connection;
}

Object open_recordset(const Object& connection, std::string_view sql, Cursor cursor) {
  Object recordset = automation::create("ADODB.Recordset");
  recordset.put("CursorLocation", cursor.location);
  recordset.call("Open", sql, connection, cursor.type, 1, -1);
  return recordset;
}

void execute(const Object& connection, std::string_view sql) {
  connection.call("Execute", sql);
}

Value scalar(const Object& connection, std::string_view sql) {
  return value(open_recordset(connection, sql), 0);
}

Object fields(const Object& recordset) {
  return automation::to_object(recordset.get("Fields"));
}

Object field(const Object& recordset, const Value& name_or_index) {
  return automation::to_object(fields(recordset).call("Item", name_or_index));
}

Value value(const Object& recordset, const Value& name_or_index) {
  return field(recordset, name_or_index).get("Value");
}

std::string remaining(const Object& recordset, const Value& name_or_index) {
  const Object column = field(recordset, name_or_index);
  std::string texts;
  for (; !is_true(recordset.get("EOF")); recordset.call("MoveNext")) {
    if (!texts.empty()) texts += ' ';
    texts += automation::to_text(column.get("Value"));
  }
  return texts;
}

bool is_same_connection(const Value& one, const Object& other) {
  const Object seen = automation::to_object(one);
  const Value before = other.get("CommandTimeout");
  other.put("CommandTimeout", 4711);
  const bool same = seen.get("CommandTimeout") == Value(4711);
  other.put("CommandTimeout", before);
  return same;
}

bool is_true(const Value& value) {
  return automation::to_boolean(value);
}

std::int32_t number(const Value& value) {
  return automation::to_int32(value);
}

std::int32_t error_of(const std::function<void()>& use) {
  try {
    use();
  } catch (const automation::Error& error) {
    return error.number();
  }
  return 0;
}

std::string description_of(const std::function<void()>& use) {
  try {
    use();
  } catch (const automation::Error& error) {
    return std::string(error.description());
  }
  return "no error";
}

}  // namespace tallyra::standins::ado::test
