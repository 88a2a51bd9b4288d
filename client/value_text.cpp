#include "client/value_text.h"

#include <type_traits>

#include "automation/convert.h"
#include "automation/error.h"

namespace tallyra::client {
namespace {

struct TypeNames {
  std::string_view operator()(std::monostate) const { return "empty"; }
  std::string_view operator()(automation::Null) const { return "null"; }
  std::string_view operator()(automation::Missing) const { return "missing"; }
  std::string_view operator()(bool) const { return "boolean"; }
  std::string_view operator()(std::uint8_t) const { return "byte"; }
  std::string_view operator()(std::int16_t) const { return "int16"; }
  std::string_view operator()(std::int32_t) const { return "int32"; }
  std::string_view operator()(std::int64_t) const { return "int64"; }
  std::string_view operator()(float) const { return "single"; }
  std::string_view operator()(double) const { return "double"; }
  std::string_view operator()(const automation::Currency&) const { return "currency"; }
  std::string_view operator()(const automation::Decimal&) const { return "decimal"; }
  std::string_view operator()(automation::Date) const { return "date"; }
  std::string_view operator()(const std::string&) const { return "text"; }
  std::string_view operator()(const automation::Object&) const { return "object"; }
  std::string_view operator()(const automation::Opaque& opaque) const {
    return opaque ? opaque->kind() : "unknown";
  }
};

}  // namespace

std::string_view type_name(const automation::Value& value) {
  return value.visit(TypeNames{});
}

std::string shown_text(const automation::Value& value) {
  if (value.is_null()) return "NULL";
  if (value.is_empty() || value.is_missing()) return {};
  if (const auto* object = value.get_if<automation::Object>()) return *object ? "(object)" : "(no object)";
  if (value.holds<automation::Opaque>()) return "(" + std::string(type_name(value)) + ")";
  try {
    return automation::to_text(value);
  } catch (const automation::Error&) {
    // A date outside the calendar is the one value left that has no text.
    return "(" + std::string(type_name(value)) + " without a text)";
  }
}

std::string text_or_nothing(const automation::Value& value) {
  return value.is_null() ? std::string() : shown_text(value);
}

double number_or_zero(const automation::Value& value) {
  return value.is_null() ? 0 : automation::to_double(value);
}

}  // namespace tallyra::client
