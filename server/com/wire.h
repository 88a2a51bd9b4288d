#pragma once

#include <oaidl.h>
#include <oleauto.h>

#include <cstdint>
#include <string>

#include "automation/com/object_passage.h"
#include "automation/com/text.h"
#include "automation/com/variant.h"

// Arguments and results of interface members in the form in which IDispatch carries them, so that both kinds
// of callers take one way from there on. The forms own nothing.
namespace tallyra::server::com {

inline VARIANTARG wire_form(BSTR text) {
  VARIANTARG form;
  V_VT(&form) = VT_BSTR;
  V_BSTR(&form) = text;
  return form;
}
inline VARIANTARG wire_form(LONG number) {
  VARIANTARG form;
  V_VT(&form) = VT_I4;
  V_I4(&form) = number;
  return form;
}
inline VARIANTARG wire_form(const VARIANT& variant) {
  return variant;
}
inline VARIANTARG left_out_form() {
  VARIANTARG form;
  V_VT(&form) = VT_ERROR;
  V_ERROR(&form) = DISP_E_PARAMNOTFOUND;
  return form;
}
inline VARIANTARG wire_form_of_reference(VARTYPE type, void* target) {
  VARIANTARG form;
  V_VT(&form) = static_cast<VARTYPE>(type | VT_BYREF);
  V_BYREF(&form) = target;
  return form;
}
inline VARIANTARG wire_form(BSTR* text) {
  return wire_form_of_reference(VT_BSTR, text);
}
inline VARIANTARG wire_form(IDispatch** object) {
  return wire_form_of_reference(VT_DISPATCH, object);
}
inline VARIANTARG wire_form(SHORT* number) {
  return wire_form_of_reference(VT_I2, number);
}
inline VARIANTARG wire_form(LONG* number) {
  return wire_form_of_reference(VT_I4, number);
}
inline VARIANTARG wire_form(double* number) {
  return wire_form_of_reference(VT_R8, number);
}

// Results as the class table types them.
inline void hand_out(const automation::Value& value, float& result) {
  result = *value.get_if<float>();
}
inline void hand_out(const automation::Value& value, double& result) {
  result = *value.get_if<double>();
}
inline void hand_out(const automation::Value& value, SHORT& result) {
  result = *value.get_if<std::int16_t>();
}
inline void hand_out(const automation::Value& value, BSTR& result) {
  result = automation::com::new_bstr(*value.get_if<std::string>());
}
inline void hand_out(const automation::Value& value, VARIANT& result) {
  result = automation::com::Variant(value, automation::com::Role::callee).detach();
}
inline void hand_out(const automation::Value& value, IDispatch*& result) {
  result = automation::com::dispatch_of(*value.get_if<automation::Object>(), automation::com::Role::callee)
               .detach();
}

}  // namespace tallyra::server::com
