#pragma once

#include <string>
#include <vector>

#include "automation/collection.h"
#include "automation/convert.h"
#include "automation/create.h"
#include "standins/corvane/local_classes.h"
#include "tests/support/answering_database.h"

namespace tallyra::standins::corvane::testing {

struct Column {
  std::string name;
  std::int32_t type;  // ADO's DataTypeEnum
};

// An open recordset without rows, which the builders take as the description of a table.
inline automation::Object table_of(const std::vector<Column>& columns) {
  static stage::AnsweringDatabase asked_nothing([](const std::string&) { return stage::Reply{}; });
  stage::Rows rows;
  for (const Column& column : columns) {
    rows.columns.push_back(column.name);
    rows.types.push_back(column.type);
  }
  return stage::recordset_on(asked_nothing, rows);
}

inline automation::Object list_of(const std::vector<automation::Value>& values) {
  automation::Object list = automation::make_object<automation::Collection>();
  for (const automation::Value& value : values) list.call("Add", value);
  return list;
}

inline automation::Object power_check(const char* database_kind) {
  register_classes();
  automation::Object object = automation::create("Corvane.CPowerCheck");
  object.put("SystemDatabase", database_kind);
  return object;
}

// Calls a builder as business classes do: everything by reference.
inline std::string build(const automation::Object& builder, const char* member, const char* table,
                         const std::vector<automation::Value>& names,
                         const std::vector<automation::Value>& values, const automation::Object& recordset) {
  automation::Value table_name = table;
  automation::Value name_list = list_of(names);
  automation::Value value_list = list_of(values);
  automation::Value structure = recordset;
  return automation::to_text(builder.call(member, automation::ref(table_name), automation::ref(name_list),
                                          automation::ref(value_list), automation::ref(structure)));
}

}  // namespace tallyra::standins::corvane::testing
