#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

#include "automation/object.h"
#include "automation/value.h"
#include "frame/business_object.h"

// What a client can call, class by class: the one description that every dispatch is made from.
namespace tallyra::server {

enum class ParameterType { text, collection, variant, int16, int32, float64 };
enum class ResultType { none, text, single, float64, int16, variant, object };
enum class MemberKind { method, property_get, property_put };

struct Parameter {
  std::string_view name;
  ParameterType type;
  bool by_reference;
  // An optional parameter takes this value when the caller leaves it out; Missing says that it is required.
  automation::Value when_omitted;

  bool optional() const { return !when_omitted.is_missing(); }
};

struct ClassMember {
  // Dispatch ids are part of what clients were compiled against: never change one.
  automation::MemberId id;
  std::string_view name;
  MemberKind kind;
  std::vector<Parameter> parameters;
  ResultType result;
  // Converts the arguments, calls, hands back what came by reference and has changed. Throws Error for
  // arguments that do not fit, blaming the first such one.
  automation::Value (*invoke)(frame::BusinessObject&, const ClassMember&, automation::Arguments);
};

struct ClassTable {
  std::string_view name;
  std::vector<ClassMember> members;
  std::unique_ptr<frame::BusinessObject> (*make)();

  // Nothing when there is no such member; a property is found for reading or for writing.
  const ClassMember* find(automation::MemberId id, automation::Access access) const;
  // Throws Error 438 for a name that no member has.
  automation::MemberId resolve(std::string_view member_name) const;
};

// The classes of the component in the order of their names.
std::span<const ClassTable> classes();

}  // namespace tallyra::server
