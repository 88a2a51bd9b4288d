#include "automation/com/incoming_calls.h"

#include <algorithm>
#include <cstring>
#include <new>
#include <string>

#include "automation/com/enumerator.h"
#include "automation/com/failure.h"
#include "automation/com/incoming_arguments.h"
#include "automation/com/pointer.h"
#include "automation/com/text.h"
#include "automation/com/variant.h"
#include "automation/enumerable.h"
#include "automation/folded_name.h"

namespace tallyra::automation::com {
namespace {

constexpr std::string_view enumerator_name = "_NewEnum";

bool is_enumerable(const Object& object) {
  return dynamic_cast<const Enumerable*>(object.dispatch()) != nullptr;
}

DISPID parameter_id(const MemberSignature* member, std::string_view name) {
  if (member)
    for (std::size_t i = 0; i < member->parameters.size(); ++i)
      if (equals_folded(member->parameters[i], name)) return static_cast<DISPID>(i);
  return DISPID_UNKNOWN;
}

void tell_argument(UINT* at_fault, const std::optional<UINT>& index) {
  if (at_fault && index) *at_fault = *index;
}

// A member counts arguments by position itself; between named ones it could not tell what is absent.
Arguments read(IncomingArguments& incoming, const MemberSignature* signature) {
  const Arguments arguments = incoming.read();
  for (std::size_t i = 0; signature && i < std::min(signature->required, arguments.size()); ++i)
    if (!incoming.wire_index(i)) throw Error(error_number::argument_not_optional);
  return arguments;
}

Value use(const Object& object, DISPID id, Access access, IncomingArguments& incoming,
          const MemberSignature* signature) {
  const Arguments arguments = read(incoming, signature);
  Value value;
  try {
    value = object.invoke(id, access, arguments);
  } catch (...) {
    // What has been set stays set.
    try {
      incoming.write_back();
    } catch (...) {
      // What does not fit is of less interest than the failure.
    }
    throw;
  }
  incoming.write_back();
  return value;
}

}  // namespace

const MemberSignature* ObjectSignature::find(DISPID id) const {
  const auto found =
      std::find_if(members.begin(), members.end(), [id](const auto& each) { return each.id == id; });
  return found == members.end() ? nullptr : &*found;
}

// The address of the module's own data is part of the identifier: another module with the same code lays its
// objects out as its own build does.
const IID& IncomingCalls::own_id() {
  static const IID id = [] {
    IID fresh = {0x5B7A64E0, 0x3C57, 0x4A06, {0x9E, 0x41, 0, 0, 0, 0, 0, 0}};
    const void* address = &id;
    static_assert(sizeof address <= sizeof fresh.Data4);
    std::memcpy(fresh.Data4 + sizeof fresh.Data4 - sizeof address, &address, sizeof address);
    return fresh;
  }();
  return id;
}

Object IncomingCalls::object_behind(IDispatch& dispatch, Role role) {
  void* found = nullptr;
  if (FAILED(dispatch.QueryInterface(own_id(), &found)) || !found) return {};
  const auto alive = Pointer<IDispatch>::adopt(&dispatch);
  const auto& own = *static_cast<const IncomingCalls*>(found);
  return own.role_ == role ? own.object_ : Object();
}

HRESULT IncomingCalls::ids_of_names(LPOLESTR* names, UINT count, DISPID* ids) const {
  if (!names || !ids) return E_POINTER;
  if (count == 0) return E_INVALIDARG;
  std::fill_n(ids, count, DISPID_UNKNOWN);
  if (std::find(names, names + count, nullptr) != names + count) return E_POINTER;
  try {
    const std::string name = to_utf8(names[0]);
    const bool walks = equals_folded(name, enumerator_name) && is_enumerable(object_);
    ids[0] = walks ? DISPID_NEWENUM : object_.resolve(name);
    for (UINT i = 1; i < count; ++i) ids[i] = parameter_id(signature_.find(ids[0]), to_utf8(names[i]));
  } catch (...) {
    const Error error = current_error();
    return error.number() == error_number::no_such_member ? DISP_E_UNKNOWNNAME
                                                          : hresult_from_number(error.number());
  }
  return std::find(ids, ids + count, DISPID_UNKNOWN) == ids + count ? S_OK : DISP_E_UNKNOWNNAME;
}

HRESULT IncomingCalls::invoke(DISPID id, REFIID reserved, WORD flags, const DISPPARAMS* parameters,
                              VARIANT* result, EXCEPINFO* failure, UINT* argument_at_fault) const {
  if (result) VariantInit(result);
  if (reserved != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
  const auto access = access_of(flags);
  if (!access || !parameters) return E_INVALIDARG;
  try {
    run(id, *access, *parameters, result, argument_at_fault);
    return S_OK;
  } catch (...) {
    const Error error = current_error();
    // A known member may have met another object that lacks one.
    const bool is_known = *access == Access::read && signature_.find(id) != nullptr;
    if (error.number() == error_number::no_such_member && !is_known) return DISP_E_MEMBERNOTFOUND;
    if (!failure) return hresult_from_number(error.number());
    try {
      describe(*failure, error, std::string(signature_.source));
    } catch (const std::bad_alloc&) {
      return E_OUTOFMEMORY;
    }
    return DISP_E_EXCEPTION;
  }
}

HRESULT IncomingCalls::call(REFIID interface_id, DISPID id, const DISPPARAMS& parameters,
                            VARIANT* result) const noexcept {
  try {
    run(id, Access::read, parameters, result, nullptr);
    return S_OK;
  } catch (...) {
    const Error error = current_error();
    try {
      set_error_object(interface_id, error, std::string(signature_.source));
    } catch (const std::bad_alloc&) {
      // The code alone has to do.
    }
    return hresult_of_raised(error.number());
  }
}

void IncomingCalls::run(DISPID id, Access access, const DISPPARAMS& parameters, VARIANT* result,
                        UINT* at_fault) const {
  if (id == DISPID_NEWENUM && access == Access::read && is_enumerable(object_)) {
    if (!result) return;
    V_UNKNOWN(result) = Enumerator::make(object_).detach();
    V_VT(result) = VT_UNKNOWN;
    return;
  }
  const MemberSignature* const signature = access == Access::read ? signature_.find(id) : nullptr;
  IncomingArguments incoming(
      parameters, signature ? std::optional<std::size_t>(signature->parameters.size()) : std::nullopt);
  try {
    const Value value = use(object_, id, access, incoming, signature);
    if (result) *result = Variant(value, Role::callee).detach();
  } catch (const Error& error) {
    tell_argument(at_fault, incoming.unknown_name());
    if (error.argument() > 0)
      tell_argument(at_fault, incoming.wire_index(static_cast<std::size_t>(error.argument()) - 1));
    throw;
  }
}

std::optional<Access> access_of(WORD flags) {
  if ((flags & DISPATCH_PROPERTYPUTREF) != 0) {
    // Both at once: the callee chooses, and a plain put is what every property here understands.
    return (flags & DISPATCH_PROPERTYPUT) != 0 ? Access::put : Access::put_reference;
  }
  if ((flags & DISPATCH_PROPERTYPUT) != 0) return Access::put;
  if ((flags & (DISPATCH_METHOD | DISPATCH_PROPERTYGET)) != 0) return Access::read;
  return std::nullopt;
}

}  // namespace tallyra::automation::com
