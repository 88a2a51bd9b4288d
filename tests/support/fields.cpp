#include "tests/support/fields.h"

#include <algorithm>

#include "automation/convert.h"
#include "tests/support/stage.h"

namespace tallyra::stage {
namespace {

// Read as any client reads them: the collection may live on the other side of a COM edge.
std::vector<automation::Value> items(const automation::Value& collection) {
  const automation::Object object = automation::to_object(collection);
  std::vector<automation::Value> list(static_cast<std::size_t>(automation::to_int32(object.get("Count"))));
  for (std::size_t i = 0; i < list.size(); ++i)
    list[i] = object.call("Item", static_cast<std::int32_t>(i + 1));
  return list;
}

}  // namespace

std::string Fields::text() const {
  const auto name_items = items(names);
  const auto value_items = items(values);
  std::string result;
  for (std::size_t i = 0; i < std::min(name_items.size(), value_items.size()); ++i)
    result += (i ? " " : "") + automation::to_text(name_items[i]) + "=" + shown(value_items[i]);
  return result;
}

}  // namespace tallyra::stage
