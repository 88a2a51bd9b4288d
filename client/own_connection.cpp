#include "client/own_connection.h"

#include "automation/convert.h"
#include "automation/create.h"

namespace tallyra::client {
namespace {

using automation::Object;

constexpr std::int32_t forward_only = 0;
constexpr std::int32_t read_only = 1;
constexpr std::int32_t unspecified = -1;

}  // namespace

OwnConnection::OwnConnection(const std::string& connection_string)
    : connection_(automation::create("ADODB.Connection")) {
  connection_.call("Open", connection_string, "", "", unspecified);
}

std::int32_t OwnConnection::count(const std::string& statement) const {
  const Object rows = automation::create("ADODB.Recordset");
  rows.call("Open", statement, connection_, forward_only, read_only, unspecified);
  const Object fields = automation::to_object(rows.get("Fields"));
  const Object field = automation::to_object(fields.call("Item", "N"));
  const std::int32_t number = automation::to_int32(field.get("Value"));
  // At once: an open result holds up the writer.
  rows.call("Close");
  return number;
}

}  // namespace tallyra::client
