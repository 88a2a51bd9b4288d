#include "frame/find_field.h"

#include "automation/convert.h"
#include "automation/folded_name.h"

namespace tallyra::frame {

using automation::BoundMember;
using automation::Value;

std::optional<Value> find_field(const FieldCollections& fields, std::string_view name, NameMatch match) {
  const std::int32_t count = automation::to_int32(fields.names.get("Count"));
  const BoundMember name_at(fields.names, "Item");
  std::string column;
  for (std::int32_t i = 1; i <= count; ++i) {
    column.clear();
    automation::append_concatenated(column, name_at.call(i));
    const bool found = match == NameMatch::exact ? column == name : automation::equals_folded(column, name);
    if (found) return fields.values.call("Item", i);
  }
  return std::nullopt;
}

}  // namespace tallyra::frame
