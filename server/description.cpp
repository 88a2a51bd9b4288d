#include "server/description.h"

#include <string>

namespace tallyra::server {
namespace {

automation::Value when_omitted(const NamedParameter& parameter) {
  if (const auto* number = std::get_if<int>(&parameter.when_omitted)) return *number;
  if (const auto* text = std::get_if<std::string_view>(&parameter.when_omitted)) return std::string(*text);
  return automation::Missing{};
}

}  // namespace

ClassMember detail::described_member(ClassMember words, const NamedParameter* named,
                                     std::span<const ParameterShape> shapes) {
  words.parameters.reserve(shapes.size());
  for (const auto& [type, by_reference] : shapes) {
    words.parameters.push_back({named->name, type, by_reference, when_omitted(*named), named->help});
    ++named;
  }
  return words;
}

std::vector<ClassMember> members_of_class(std::initializer_list<std::vector<ClassMember>> groups) {
  std::vector<ClassMember> members = session_properties();
  for (const auto& group : groups) members.insert(members.end(), group.begin(), group.end());
  return members;
}

}  // namespace tallyra::server
