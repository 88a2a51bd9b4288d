#pragma once

#include <string>
#include <vector>

#include "automation/create.h"
#include "standins/corvane/local_classes.h"
#include "tests/unit/standins/corvane/table_double.h"

namespace tallyra::standins::corvane::testing {

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
