#include "automation/com/outgoing_arguments.h"

#include "automation/com/com_proxy.h"

namespace tallyra::automation::com {
namespace {

// Whether compiled languages have variables of that type. What is none, and the rest, are in variants there.
bool is_type_of_variables(VARTYPE type) {
  switch (type) {
    case VT_BSTR:
    case VT_UI1:
    case VT_I2:
    case VT_I4:
    case VT_R4:
    case VT_R8:
    case VT_CY:
    case VT_DATE:
    case VT_BOOL:
    case VT_DISPATCH: return true;
    default: return false;
  }
}

// A reference to `content`, or to what is in it.
VARIANTARG reference_to(VARIANT& content, ReferenceForm form) {
  VARIANTARG reference;
  if (form == ReferenceForm::typed && is_type_of_variables(V_VT(&content))) {
    V_VT(&reference) = static_cast<VARTYPE>(VT_BYREF | V_VT(&content));
    V_BYREF(&reference) = &V_NONE(&content);
  } else {
    V_VT(&reference) = VT_BYREF | VT_VARIANT;
    V_VARIANTREF(&reference) = &content;
  }
  return reference;
}

}  // namespace

OutgoingArguments::OutgoingArguments(Arguments arguments, Access access, ReferenceForm form)
    : arguments_(arguments) {
  const std::size_t count = arguments.size();
  if (count > usual_count) {
    many_contents_.resize(count);
    many_passed_.resize(count);
    contents_ = many_contents_.data();
    passed_ = many_passed_.data();
  }
  for (std::size_t i = 0; i < count; ++i) {
    const Argument& argument = arguments[count - 1 - i];
    contents_[i] = Variant(argument.get(), Role::caller);
    // A plain copy of the bits: the content keeps its owner.
    passed_[i] = argument.is_reference() ? reference_to(contents_[i].raw(), form) : contents_[i].raw();
  }
  parameters_.cArgs = static_cast<UINT>(count);
  parameters_.rgvarg = passed_;
  if (access != Access::read) {
    parameters_.cNamedArgs = 1;
    parameters_.rgdispidNamedArgs = &value_put_;
  }
}

void OutgoingArguments::take_back() {
  for (std::size_t i = 0; i < arguments_.size(); ++i) {
    const Argument& argument = arguments_[arguments_.size() - 1 - i];
    if (!argument.is_reference()) continue;
    const VARIANT& now = contents_[i].raw();
    // The object that went out is still the caller's own one, not a new stranger with the same face.
    if (const auto* before = argument.get().get_if<Object>(); before && V_VT(&now) == VT_DISPATCH)
      if (const auto* proxy = dynamic_cast<const ComProxy*>(before->dispatch()))
        if (proxy->target().get() == V_DISPATCH(&now)) continue;
    argument.set(value_of(now, Role::caller));
  }
}

}  // namespace tallyra::automation::com
