#include "automation/com/com_proxy.h"

#include "automation/com/failure.h"
#include "automation/com/outgoing_arguments.h"
#include "automation/com/text.h"

namespace tallyra::automation::com {
namespace {

// Every text of the component is made without regard to the user's language; callees hear of none either.
constexpr LCID language_neutral = LOCALE_NEUTRAL;

// What stays where a callee names no argument.
constexpr UINT none_at_fault = static_cast<UINT>(-1);

WORD flags_of(Access access) {
  switch (access) {
    case Access::put: return DISPATCH_PROPERTYPUT;
    case Access::put_reference: return DISPATCH_PROPERTYPUTREF;
    default: return DISPATCH_METHOD | DISPATCH_PROPERTYGET;
  }
}

}  // namespace

MemberId ComProxy::resolve(std::string_view name) {
  for (const auto& [known, id] : known_names_)
    if (known == name) return id;
  std::wstring wide = to_utf16(name);
  LPOLESTR names = wide.data();
  DISPID id = DISPID_UNKNOWN;
  throw_if_failed(target_->GetIDsOfNames(IID_NULL, &names, 1, language_neutral, &id));
  known_names_.emplace_back(name, id);
  return id;
}

Value ComProxy::invoke(MemberId id, Access access, Arguments arguments) {
  // The callee may let go of everything that leads here, this object included.
  const Pointer<IDispatch> target = target_;
  OutgoingArguments outgoing(arguments, access);
  Variant result;
  EXCEPINFO failure{};
  UINT argument_at_fault = none_at_fault;
  const HRESULT code =
      target->Invoke(id, IID_NULL, language_neutral, flags_of(access), &outgoing.parameters(),
                     access == Access::read ? &result.raw() : nullptr, &failure, &argument_at_fault);
  if (FAILED(code)) {
    Error error = code == DISP_E_EXCEPTION ? error_of(failure) : error_of(code);
    if (argument_at_fault < arguments.size())
      error.blame_argument(static_cast<int>(arguments.size() - argument_at_fault));
    // A variable that the callee has set before it failed is set.
    outgoing.take_back();
    throw error;
  }
  outgoing.take_back();
  return value_of(result.raw(), Role::caller);
}

}  // namespace tallyra::automation::com
