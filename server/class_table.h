#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

#include "automation/object.h"
#include "automation/value.h"
#include "frame/business_object.h"

// What a client can call, class by class: the one description that every dispatch is made from, and, by
// tallyra-describe, all that is written about members elsewhere: the interfaces, the list of the console
// client, the tables of the reference. Help strings are whole sentences without a full stop.
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
  std::string_view help = {};

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
  std::string_view help = {};
  std::string_view result_help = {};
};

// What is told of a class as a whole. Identifiers are as in the registry, without braces; clients were
// compiled against them: never change one.
struct ClassDescription {
  std::string_view class_id = {};
  std::string_view interface_id = {};
  std::string_view help = {};             // in the type library
  std::string_view registered_as = {};    // in the registry, behind the name of the component
  std::string_view purpose = {};          // in the list of the console client
  std::string_view event_interface = {};  // the name of what it is the source of, if it is
};

struct ClassTable {
  std::string_view name;
  std::vector<ClassMember> members;
  std::unique_ptr<frame::BusinessObject> (*make)();
  ClassDescription about = {};

  // Nothing when there is no such member; a property is found for reading or for writing.
  const ClassMember* find(automation::MemberId id, automation::Access access) const;
  // Throws Error 438 for a name that no member has.
  automation::MemberId resolve(std::string_view member_name) const;
};

// The classes of the component in the order of the type library.
std::span<const ClassTable> classes();

}  // namespace tallyra::server
