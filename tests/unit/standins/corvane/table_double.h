#pragma once

#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

#include "automation/collection.h"
#include "automation/convert.h"
#include "automation/member_table.h"

// What the statement builders ask of their arguments: an open recordset as a description of a table, and
// collections.
namespace tallyra::standins::corvane::testing {

struct Column {
  std::string name;
  std::int32_t type;  // ADO's DataTypeEnum
};

class FieldDouble : public automation::Implements<FieldDouble> {
 public:
  explicit FieldDouble(Column column) : column_(std::move(column)) {}
  static const automation::MemberTable<FieldDouble>& members() {
    static const automation::MemberTable<FieldDouble> table{
        {1, "Name", automation::property<&FieldDouble::name>},
        {2, "Type", automation::property<&FieldDouble::type>},
    };
    return table;
  }
  automation::Value name() { return column_.name; }
  automation::Value type() { return column_.type; }

 private:
  Column column_;
};

class FieldsDouble : public automation::Implements<FieldsDouble> {
 public:
  explicit FieldsDouble(std::vector<Column> columns) : columns_(std::move(columns)) {}
  static const automation::MemberTable<FieldsDouble>& members() {
    static const automation::MemberTable<FieldsDouble> table{
        {automation::default_member, "Item", automation::method<&FieldsDouble::item>},
        {1, "Count", automation::property<&FieldsDouble::count>},
    };
    return table;
  }
  automation::Value count() { return static_cast<std::int32_t>(columns_.size()); }
  // Counted from 0, as ADO does.
  automation::Value item(automation::Arguments arguments) {
    const auto index = static_cast<std::size_t>(automation::to_int32(arguments[0].get()));
    return automation::make_object<FieldDouble>(columns_.at(index));
  }

 private:
  std::vector<Column> columns_;
};

class TableDouble : public automation::Implements<TableDouble> {
 public:
  explicit TableDouble(std::vector<Column> columns)
      : fields_(automation::make_object<FieldsDouble>(std::move(columns))) {}
  static const automation::MemberTable<TableDouble>& members() {
    static const automation::MemberTable<TableDouble> table{
        {1, "Fields", automation::property<&TableDouble::fields>},
    };
    return table;
  }
  automation::Value fields() { return fields_; }

 private:
  automation::Object fields_;
};

inline automation::Object table_of(std::vector<Column> columns) {
  return automation::make_object<TableDouble>(std::move(columns));
}

inline automation::Object list_of(const std::vector<automation::Value>& values) {
  automation::Object list = automation::make_object<automation::Collection>();
  for (const automation::Value& value : values) list.call("Add", value);
  return list;
}

}  // namespace tallyra::standins::corvane::testing
