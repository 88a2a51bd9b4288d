#include "tests/unit/server/classes/described_class.h"

#include "tests/support/stage.h"

namespace tallyra::server {
namespace {

std::string_view word(ParameterType type) {
  switch (type) {
    case ParameterType::text: return "text";
    case ParameterType::collection: return "collection";
    case ParameterType::variant: return "variant";
    case ParameterType::int16: return "int16";
    case ParameterType::int32: return "int32";
    case ParameterType::float64: return "double";
  }
  return "?";
}

std::string_view word(ResultType type) {
  switch (type) {
    case ResultType::none: return "";
    case ResultType::text: return ": text";
    case ResultType::single: return ": single";
    case ResultType::float64: return ": double";
    case ResultType::int16: return ": int16";
    case ResultType::variant: return ": variant";
    case ResultType::object: return ": object";
  }
  return "?";
}

std::string_view word(MemberKind kind) {
  switch (kind) {
    case MemberKind::method: return "";
    case MemberKind::property_get: return "get ";
    case MemberKind::property_put: return "put ";
  }
  return "?";
}

}  // namespace

std::string described(const ClassTable& table, bool methods) {
  std::string text;
  for (const auto& member : table.members) {
    if ((member.kind == MemberKind::method) != methods) continue;
    text += std::to_string(member.id) + " ";
    text.append(word(member.kind)).append(member.name).append("(");
    for (const auto& parameter : member.parameters) {
      if (&parameter != &member.parameters.front()) text += ", ";
      if (parameter.by_reference) text += "&";
      text.append(parameter.name).append(" ").append(word(parameter.type));
      if (parameter.optional()) text += " = " + stage::shown(parameter.when_omitted);
    }
    text.append(")").append(word(member.result)).append("\n");
  }
  return text;
}

std::string methods_of(std::string_view name) {
  for (const auto& table : classes())
    if (table.name == name) return described(table, true);
  return "no such class";
}

}  // namespace tallyra::server
