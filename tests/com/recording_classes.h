#pragma once

#include <oaidl.h>

#include <string>
#include <vector>

#include "automation/com/pointer.h"
#include "server/class_table.h"

// Classes in the place of the component's own, made from the type library: their members record what reaches
// them, put new contents in place of everything that comes by reference, and return something of their own.
namespace tallyra::tests::com {

struct RecordedCall {
  automation::MemberId id = 0;
  std::vector<std::string> arguments;
};

extern std::vector<RecordedCall> recorded_calls;

// What a value is, with its kind; a collection is known by its first entry.
std::string described(const automation::Value& value);

// Contents of a type that no other place has.
automation::Value sample(VARTYPE type, int place);

// The places of what a recording member gives back: those of new contents begin here, the result is the one
// before.
inline constexpr int first_new_place = 100;
inline constexpr int result_place = first_new_place - 1;

// A class of the type library that clients create, with its own interface.
struct DescribedInterface {
  std::string class_name;
  GUID class_id;
  IID id;
  automation::com::Pointer<ITypeInfo> vtable;
};
const std::vector<DescribedInterface>& described_interfaces();

bool is_result(const ELEMDESC& parameter);
// The type of the variable that a parameter is or refers to.
VARTYPE variable_type(const ELEMDESC& parameter);

}  // namespace tallyra::tests::com
