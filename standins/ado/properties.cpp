#include "standins/ado/properties.h"

#include <array>
#include <cstdint>

#include "automation/folded_name.h"
#include "standins/ado/arguments.h"
#include "standins/ado/connection.h"
#include "standins/ado/connection_string.h"

namespace tallyra::standins::ado {
namespace {

using automation::Value;

struct Entry {
  std::string_view name;
  std::string (*value)(const EngineSession&);
};

template <Information kind>
std::string told(const EngineSession& session) {
  return session.information(kind);
}

std::string completed(const EngineSession& session) {
  return without_password(session.completed_string());
}

constexpr auto entries = std::to_array<Entry>({
    {"Current Catalog", told<Information::current_catalog>},
    {"Data Source Name", told<Information::data_source_name>},
    {"DBMS Name", told<Information::dbms_name>},
    {"DBMS Version", told<Information::dbms_version>},
    {"Driver Name", told<Information::driver_name>},
    {"Driver Version", told<Information::driver_version>},
    {"Extended Properties", completed},
    {"Server Name", told<Information::server_name>},
    {"User Name", told<Information::user_name>},
});

// ADO's words for a text that can be read and not written.
constexpr std::int32_t text_type = 8;
constexpr std::int32_t readable = 0x200;

}  // namespace

const automation::MemberTable<Properties>& Properties::members() {
  static const automation::MemberTable<Properties> table{
      {automation::default_member, "Item", automation::method<&Properties::item>},
      {1, "Count", automation::property<&Properties::count>},
  };
  return table;
}

Properties::Properties(Connection& connection) : connection_(connection), held_(&connection) {}

Value Properties::item(automation::Arguments arguments) {
  automation::expect_arguments(arguments, 1, 1);
  return item_at(position_of(arguments[0].get()));
}

std::size_t Properties::position_of(const Value& name_or_index) const {
  const auto* name = name_or_index.get_if<std::string>();
  if (!name) return static_cast<std::size_t>(integer_value(name_or_index));
  std::size_t position = 0;
  while (position < entries.size() && !automation::equals_folded(entries[position].name, *name)) ++position;
  return position;
}

Value Properties::count() {
  return static_cast<std::int32_t>(item_count());
}

std::size_t Properties::item_count() const {
  return connection_.is_open() ? entries.size() : 0;
}

Value Properties::item_at(std::size_t position) const {
  if (position >= item_count()) raise(ado_error::item_not_found);
  const Entry& entry = entries[position];
  return automation::make_object<Property>(entry.name, entry.value(connection_.session()));
}

const automation::MemberTable<Property>& Property::members() {
  static const automation::MemberTable<Property> table{
      {automation::default_member, "Value", automation::read_write<&Property::value, &Property::set_value>},
      {1, "Name", automation::property<&Property::name>},
      {2, "Type", automation::property<&Property::type>},
      {3, "Attributes", automation::property<&Property::attributes>},
  };
  return table;
}

Value Property::name() {
  return name_;
}

Value Property::value() {
  return value_;
}

void Property::set_value(const Value&) {
  raise(ado_error::not_supported);
}

Value Property::type() {
  return text_type;
}

Value Property::attributes() {
  return readable;
}

}  // namespace tallyra::standins::ado
