#include "tests/transcript/stage/fields.h"

#include <algorithm>

#include "automation/convert.h"
#include "tests/transcript/stage/stage.h"

namespace tallyra::stage {
namespace {

const std::vector<automation::Value>& items(const automation::Value& collection) {
  return dynamic_cast<const automation::Collection&>(*collection.get_if<automation::Object>()->dispatch())
      .items();
}

}  // namespace

std::string Fields::text() const {
  const auto& name_items = items(names);
  const auto& value_items = items(values);
  std::string result;
  for (std::size_t i = 0; i < std::min(name_items.size(), value_items.size()); ++i)
    result += (i ? " " : "") + automation::to_text(name_items[i]) + "=" + shown(value_items[i]);
  return result;
}

}  // namespace tallyra::stage
