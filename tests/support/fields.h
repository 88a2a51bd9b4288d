#pragma once

#include <initializer_list>
#include <string>
#include <utility>

#include "automation/collection.h"
#include "automation/value.h"

namespace tallyra::stage {

// The pair of collections that a client brings.
struct Fields {
  Fields() = default;
  Fields(std::initializer_list<std::pair<const char*, automation::Value>> entries) {
    for (const auto& [name, value] : entries) {
      add(names, name);
      add(values, value);
    }
  }
  static void add(const automation::Value& collection, const automation::Value& item) {
    collection.get_if<automation::Object>()->call("Add", item);
  }

  automation::Value names = automation::make_object<automation::Collection>();
  automation::Value values = automation::make_object<automation::Collection>();

  // "ADDRNO='A1' QTY=Null" in the order of the entries; only as far as both collections go.
  std::string text() const;
};

}  // namespace tallyra::stage
