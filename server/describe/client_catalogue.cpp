#include "server/describe/client_catalogue.h"

#include <algorithm>
#include <vector>

#include "server/describe/words.h"

namespace tallyra::server::describe {
namespace {

std::string shown_arguments(const ClassMember& member) {
  std::string text;
  bool in_collections = false;
  for (const auto& parameter : member.parameters) {
    // Names and values are one thing to a person.
    const bool again = in_collections && parameter.type == ParameterType::collection;
    in_collections = parameter.type == ParameterType::collection;
    if (again) continue;
    if (!text.empty()) text += " ";
    if (in_collections)
      text += member.name == "Read" ? "@" : "COLUMN=value...";
    else
      text += parameter.optional() ? "[" + std::string(parameter.name) + "]" : std::string(parameter.name);
  }
  return text;
}

// A row is inserted before it is changed, though Update has the lower id.
std::vector<const ClassMember*> methods_of(const ClassTable& table) {
  std::vector<const ClassMember*> methods;
  for (const auto& member : table.members)
    if (member.kind == MemberKind::method) methods.push_back(&member);
  const auto named = [&methods](std::string_view name) {
    return std::find_if(methods.begin(), methods.end(),
                        [name](const ClassMember* member) { return member->name == name; });
  };
  const auto update = named("Update");
  const auto insert = named("Insert");
  if (update < insert && insert != methods.end()) std::rotate(update, insert, insert + 1);
  return methods;
}

}  // namespace

std::string client_catalogue(std::span<const ClassTable> classes) {
  std::string text;
  std::string entries;
  for (const auto& table : classes) {
    const std::string array = file_name(table.name);
    text += "constexpr MemberEntry " + array + "[] = {\n";
    for (const ClassMember* member : methods_of(table))
      text += "    {\"" + std::string(member->name) + "\", \"" + shown_arguments(*member) + "\"},\n";
    text += "};\n";
    entries += "    {\"" + std::string(table.name) + "\", \"" + std::string(table.about.purpose) + "\", " +
               array + "},\n";
  }
  return text + "\nconstexpr ClassEntry classes[] = {\n" + entries + "};\n";
}

}  // namespace tallyra::server::describe
