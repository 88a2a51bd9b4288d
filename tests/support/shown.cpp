#include "tests/support/shown.h"

#include "automation/convert.h"
#include "tests/support/named.h"

namespace tallyra::stage {

using automation::Object;
using automation::Value;

std::string shown(const Value& value) {
  if (const auto* object = value.get_if<Object>()) {
    if (!*object) return "Nothing";
    if (const auto* named = dynamic_cast<const Named*>(object->dispatch())) return named->name();
    return "object";
  }
  if (value.is_null()) return "Null";
  if (value.is_missing()) return "missing";
  if (value.is_empty()) return "Empty";
  if (value.is_text()) return "'" + automation::to_text(value) + "'";
  return automation::to_text(value);
}

std::string shown(automation::Arguments arguments) {
  std::string text;
  for (const auto& argument : arguments) text += " " + shown(argument.get());
  return text;
}

}  // namespace tallyra::stage
