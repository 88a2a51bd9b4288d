#pragma once

#include <oaidl.h>

#include <string>
#include <utility>
#include <vector>

#include "automation/com/com_object.h"
#include "automation/com/text.h"
#include "automation/com/variant.h"

namespace tallyra::tests::com {

using automation::Value;
using automation::com::Role;
using automation::com::Variant;

// An argument that holds an object of the caller's.
inline Variant object_variant(const automation::Object& object) {
  Variant variant;
  V_DISPATCH(&variant.raw()) = automation::com::ComObject::make(object, Role::caller).detach();
  V_VT(&variant.raw()) = VT_DISPATCH;
  return variant;
}

// What a client wants to be told by a call; it passes a null pointer for the rest.
struct Wanted {
  bool result = true;
  bool failure = true;
  bool argument_at_fault = true;
};

// Every choice there is.
inline std::vector<Wanted> all_wishes() {
  std::vector<Wanted> wishes;
  for (const bool result : {true, false})
    for (const bool failure : {true, false})
      for (const bool argument : {true, false}) wishes.push_back({result, failure, argument});
  return wishes;
}

// One Invoke as a client writes it: arguments in the order of the parameters, each in the form that the
// client chose.
struct WireCall {
  DISPID id = 0;
  WORD flags = DISPATCH_METHOD | DISPATCH_PROPERTYGET;
  std::vector<VARIANTARG> arguments = {};
  // Ids of named arguments, which come first on the wire.
  std::vector<DISPID> names = {};

  Variant result = {};
  EXCEPINFO failure = {};
  UINT argument_at_fault = 77;

  ~WireCall() {
    SysFreeString(failure.bstrSource);
    SysFreeString(failure.bstrDescription);
    SysFreeString(failure.bstrHelpFile);
  }

  HRESULT on(IDispatch* object, const Wanted& wanted = {}) {
    std::vector<VARIANTARG> wire(arguments.rbegin(), arguments.rend());
    DISPPARAMS parameters{wire.data(), names.data(), static_cast<UINT>(wire.size()),
                          static_cast<UINT>(names.size())};
    return object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters,
                          wanted.result ? &result.raw() : nullptr, wanted.failure ? &failure : nullptr,
                          wanted.argument_at_fault ? &argument_at_fault : nullptr);
  }
};

inline VARIANTARG reference(VARTYPE type, void* target) {
  VARIANTARG argument;
  V_VT(&argument) = static_cast<VARTYPE>(type | VT_BYREF);
  V_BYREF(&argument) = target;
  return argument;
}

inline VARIANTARG reference(VARIANT& target) {
  return reference(VT_VARIANT, &target);
}

inline VARIANTARG left_out() {
  VARIANTARG argument;
  V_VT(&argument) = VT_ERROR;
  V_ERROR(&argument) = DISP_E_PARAMNOTFOUND;
  return argument;
}

inline Value value_in(const VARIANT& variant) {
  return automation::com::value_of(variant, Role::caller);
}

}  // namespace tallyra::tests::com
