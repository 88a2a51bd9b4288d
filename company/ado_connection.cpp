#include "company/ado_connection.h"

#include "automation/convert.h"
#include "automation/create.h"
#include "automation/folded_name.h"
#include "company/options.h"

namespace tallyra::company {
namespace {

using automation::Object;
using automation::to_object;

std::string upper_case(std::string text) {
  for (char& c : text) {
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  }
  return text;
}

// A field shows the row on which its recordset stands, so each is asked for once.
std::vector<automation::BoundMember> values_of(const Object& recordset) {
  const Object fields = to_object(recordset.get("Fields"));
  const auto count = automation::to_int32(fields.get("Count"));
  std::vector<automation::BoundMember> values;
  values.reserve(static_cast<std::size_t>(count));
  for (std::int32_t i = 0; i < count; ++i) {
    values.emplace_back(to_object(fields.call("Item", i)), "Value");
  }
  return values;
}

std::string_view relations_query(schema::Engine engine) {
  if (engine == schema::Engine::sqlite) return "SELECT name FROM sqlite_master";
  return "SELECT upper(C.relname) FROM pg_class C JOIN pg_namespace N ON N.oid=C.relnamespace WHERE "
         "N.nspname=current_schema()";
}

}  // namespace

AdoConnection::AdoConnection(const std::string& connection_string)
    : connection_(automation::create("ADODB.Connection")) {
  connection_.call("Open", connection_string);
}

void AdoConnection::execute(std::string_view statement) const {
  connection_.call("Execute", statement);
}

Object AdoConnection::recordset(std::string_view query) const {
  return to_object(connection_.call("Execute", query));
}

std::vector<AdoConnection::Row> AdoConnection::rows(std::string_view query) const {
  const Object found = recordset(query);
  const auto values = values_of(found);
  const automation::BoundMember at_end(found, "EOF");
  const automation::BoundMember move_next(found, "MoveNext");
  std::vector<Row> rows;
  for (; !automation::to_boolean(at_end.get()); move_next.call()) {
    Row& row = rows.emplace_back();
    row.reserve(values.size());
    for (const auto& value : values) row.push_back(value.get());
  }
  return rows;
}

double AdoConnection::number(std::string_view query) const {
  return automation::to_double(rows(query).at(0).at(0));
}

std::vector<std::string> AdoConnection::columns_of(std::string_view table) const {
  const Object none = recordset("SELECT * FROM " + std::string(table) + " WHERE 1=0");
  const Object fields = to_object(none.get("Fields"));
  const auto count = automation::to_int32(fields.get("Count"));
  std::vector<std::string> columns;
  columns.reserve(static_cast<std::size_t>(count));
  for (std::int32_t i = 0; i < count; ++i) {
    columns.push_back(upper_case(automation::to_text(to_object(fields.call("Item", i)).get("Name"))));
  }
  return columns;
}

std::vector<std::string> AdoConnection::relations() const {
  std::vector<std::string> names;
  for (const Row& row : rows(relations_query(engine())))
    names.push_back(upper_case(automation::to_text(row[0])));
  return names;
}

schema::Engine AdoConnection::engine() const {
  const Object properties = to_object(connection_.get("Properties"));
  const std::string name = automation::to_text(to_object(properties.call("Item", "DBMS Name")).get("Value"));
  if (automation::equals_folded(name, "SQLite")) return schema::Engine::sqlite;
  if (automation::equals_folded(name, "PostgreSQL")) return schema::Engine::postgresql;
  throw Refusal("the tables of a database of " + name +
                " are made with its script in schema/; this program reaches SQLite and PostgreSQL");
}

}  // namespace tallyra::company
