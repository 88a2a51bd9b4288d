#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

#include "automation/enumerable.h"
#include "standins/ado/ado_object.h"

namespace tallyra::standins::ado {

class Connection;

// What a client may ask of a connection, under the names that the ODBC provider gives it: Count, Item by name
// or by position from 0 (the default member), For Each. There is something to ask as long as the connection
// is open: "Current Catalog", "Data Source Name", "DBMS Name", "DBMS Version", "Driver Name", "Driver
// Version", "Server Name" and "User Name" as the driver tells them, and "Extended Properties", the connection
// string as the driver completed it, without a password. Holds its connection.
class Properties : public AdoObject<Properties>, public automation::Enumerable {
 public:
  static const automation::MemberTable<Properties>& members();

  explicit Properties(Connection& connection);

  automation::Value item(automation::Arguments arguments);
  automation::Value count();

  std::size_t item_count() const override;
  automation::Value item_at(std::size_t position) const override;

 private:
  std::size_t position_of(const automation::Value& name_or_index) const;

  Connection& connection_;
  const automation::Object held_;
};

// One answer, as it was when the property was asked for.
class Property : public AdoObject<Property> {
 public:
  static const automation::MemberTable<Property>& members();

  Property(std::string_view name, std::string value) : name_(name), value_(std::move(value)) {}

  automation::Value name();
  automation::Value value();
  // Nothing here can be changed: throws 3251.
  void set_value(const automation::Value& value);
  automation::Value type();
  automation::Value attributes();

 private:
  const std::string name_;
  const std::string value_;
};

}  // namespace tallyra::standins::ado
