#include "tests/ado/stage.h"

#include <random>
#include <system_error>

#include "automation/convert.h"
#include "standins/ado/register.h"

namespace tallyra::standins::ado::test {

Stage::Stage() {
  register_classes();
  std::random_device entropy;
  folder_ = std::filesystem::temp_directory_path() / ("tallyra-ado-" + std::to_string(entropy()));
  std::filesystem::create_directories(folder_);
}

Stage::~Stage() {
  std::error_code ignored;
  std::filesystem::remove_all(folder_, ignored);
}

std::string Stage::path(std::string_view file) const {
  return (folder_ / file).string();
}

std::string Stage::connection_string(std::string_view file) const {
  return "DRIVER={SQLite3};Database=" + path(file) + ";SyncPragma=OFF;Timeout=100";
}

Object Stage::open_connection() const {
  return open_connection("test.db");
}

Object Stage::open_connection(std::string_view file) const {
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
    return error.description();
  }
  return "no error";
}

}  // namespace tallyra::standins::ado::test
