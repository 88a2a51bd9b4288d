#include "bench/session.h"

#include <stdexcept>

#include "automation/collection.h"
#include "automation/convert.h"
#include "automation/create.h"

namespace tallyra::bench {

using automation::Object;
using automation::Value;

Object session(const std::string& connection_string, const std::string& class_name) {
  Object object = automation::create("Tallyra." + class_name);
  object.put("ConnectionString", connection_string);
  object.put("UserID", "ADMIN");
  object.put("Language", "EN");
  object.put("SystemDatabase", "MSACCESS");
  return object;
}

Value collection(const std::vector<Value>& items) {
  Object made = automation::make_object<automation::Collection>();
  for (const auto& item : items) made.call("Add", item);
  return made;
}

void require_success(const Object& object, const Value& result) {
  if (automation::equals_number(result, 100) && automation::equals_number(object.get("ErrNumber"), 0)) return;
  throw std::runtime_error(automation::to_text(object.get("ErrNumber")) + " " +
                           automation::to_text(object.get("ErrDescription")));
}

std::uint64_t count_rows(const std::string& connection_string, const std::string& query) {
  const Object connection = automation::create("ADODB.Connection");
  connection.call("Open", connection_string);
  const Object rows = automation::create("ADODB.Recordset");
  rows.call("Open", query, connection);
  const Object fields = automation::to_object(rows.get("Fields"));
  return static_cast<std::uint64_t>(
      automation::to_double(automation::to_object(fields.call("Item", "N")).get("Value")));
}

}  // namespace tallyra::bench
