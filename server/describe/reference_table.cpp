#include "server/describe/reference_table.h"

#include <cctype>

namespace tallyra::server::describe {
namespace {

std::string word(ParameterType type) {
  switch (type) {
    case ParameterType::text: return "text";
    case ParameterType::collection: return "collection";
    case ParameterType::variant: return "variant";
    case ParameterType::int16: return "16-bit integer";
    case ParameterType::int32: return "32-bit integer";
    case ParameterType::float64: return "double";
  }
  return {};
}

std::string word(ResultType type) {
  switch (type) {
    case ResultType::text: return "text";
    case ResultType::single: return "single";
    case ResultType::float64: return "double";
    case ResultType::int16: return "16-bit integer";
    case ResultType::variant: return "variant";
    case ResultType::object: return "object";
    case ResultType::none: break;
  }
  return {};
}

bool alike(const Parameter& one, const Parameter& other) {
  return one.type == other.type && one.by_reference == other.by_reference &&
         one.when_omitted == other.when_omitted;
}

// "`cCloseID`, `cCloseDT` texts by reference": neighbours of one kind share its name.
std::string documented_arguments(const ClassMember& member) {
  std::string text;
  std::size_t sharing = 0;
  for (std::size_t i = 0; i < member.parameters.size(); ++i) {
    const Parameter& parameter = member.parameters[i];
    if (i > 0) text += ", ";
    if (parameter.optional() && sharing == 0) text += "optional ";
    text += "`" + std::string(parameter.name) + "`";
    ++sharing;
    if (i + 1 < member.parameters.size() && alike(parameter, member.parameters[i + 1])) continue;
    text += " " + word(parameter.type) + (sharing > 1 ? "s" : "");
    if (parameter.by_reference) text += " by reference";
    sharing = 0;
  }
  return text;
}

// A single tells but success or failure, as in every class.
std::string result_of(const ClassMember& member) {
  if (member.result == ResultType::single) return word(member.result);
  std::string help(member.result_help);
  const bool is_word = help.size() > 1 && std::islower(static_cast<unsigned char>(help[1])) != 0;
  if (is_word) help[0] = static_cast<char>(std::tolower(static_cast<unsigned char>(help[0])));
  return word(member.result) + ": " + help;
}

}  // namespace

std::string reference_table(const ClassTable& table) {
  std::string text = "\n| id | member | arguments | result |\n|---|---|---|---|\n";
  for (const auto& member : table.members)
    if (member.kind == MemberKind::method)
      text += "| " + std::to_string(member.id) + " | `" + std::string(member.name) + "` | " +
              documented_arguments(member) + " | " + result_of(member) + " |\n";
  return text + "\n";
}

}  // namespace tallyra::server::describe
