#pragma once

#include <cstddef>
#include <initializer_list>
#include <memory>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

#include "server/class_table.h"
#include "server/named_parameter.h"
#include "server/signature.h"

// The words in which server/classes describes a class. Only what the C++ methods do not tell is said: types
// and directions of parameters and results come from their signatures.
namespace tallyra::server {

namespace detail {

// A member, with one shape per parameter that is named.
ClassMember described_member(ClassMember words, const NamedParameter* named,
                             std::span<const ParameterShape> shapes);

template <auto F>
ClassMember described_member(MemberKind kind, automation::MemberId id, std::string_view name,
                             std::string_view help, const NamedParameter* parameters,
                             std::string_view result_help) {
  using S = Signature<decltype(F)>;
  return described_member(
      {id, name, kind, {}, TypeOf<typename S::Result>::result, &S::template invoke<F>, help, result_help},
      parameters, S::shapes);
}

}  // namespace detail

// A method, with its parameters in their order.
template <auto F, std::size_t N>
ClassMember method(automation::MemberId id, std::string_view name, std::string_view help,
                   const NamedParameter (&parameters)[N], std::string_view result_help) {
  static_assert(N == detail::Signature<decltype(F)>::arity, "every parameter is described");
  return detail::described_member<F>(MemberKind::method, id, name, help, parameters, result_help);
}

template <auto Get>
ClassMember property_get(automation::MemberId id, std::string_view name, std::string_view help,
                         std::string_view value_help) {
  return detail::described_member<Get>(MemberKind::property_get, id, name, help, nullptr, value_help);
}

template <auto Put>
ClassMember property_put(automation::MemberId id, std::string_view name, std::string_view help,
                         std::string_view value_help) {
  const NamedParameter value{"value", value_help};
  return detail::described_member<Put>(MemberKind::property_put, id, name, help, &value, {});
}

// The properties that every class has.
std::vector<ClassMember> session_properties();

// The members of a class: those that every class has, then its methods, in one or more groups.
std::vector<ClassMember> members_of_class(std::initializer_list<std::vector<ClassMember>> groups);

template <class C, class... Groups>
ClassTable class_table(std::string_view name, const ClassDescription& about, std::vector<ClassMember> methods,
                       Groups... more) {
  return {name, members_of_class({std::move(methods), std::move(more)...}),
          []() -> std::unique_ptr<frame::BusinessObject> { return std::make_unique<C>(); }, about};
}

}  // namespace tallyra::server
