#include "automation/com/com_object.h"

#include <cstring>
#include <new>
#include <string>

#include "automation/com/enumerator.h"
#include "automation/com/failure.h"
#include "automation/com/incoming_arguments.h"
#include "automation/com/text.h"
#include "automation/com/variant.h"
#include "automation/enumerable.h"
#include "automation/folded_name.h"

namespace tallyra::automation::com {
namespace {

// Answered by the objects of this very module alone: the address of its own data is part of the identifier.
// Another module with the same code lays its objects out as its own build does.
const IID& own_object_id() {
  static const IID id = [] {
    IID fresh = {0x5B7A64E0, 0x3C57, 0x4A06, {0x9E, 0x41, 0, 0, 0, 0, 0, 0}};
    const void* address = &id;
    static_assert(sizeof address <= sizeof fresh.Data4);
    std::memcpy(fresh.Data4 + sizeof fresh.Data4 - sizeof address, &address, sizeof address);
    return fresh;
  }();
  return id;
}

constexpr std::string_view enumerator_name = "_NewEnum";

bool is_enumerable(const Object& object) {
  return dynamic_cast<const Enumerable*>(object.dispatch()) != nullptr;
}

}  // namespace

std::optional<Access> access_of(WORD flags) {
  if ((flags & DISPATCH_PROPERTYPUTREF) != 0) {
    // Both at once: the callee chooses, and a plain put is what every property here understands.
    return (flags & DISPATCH_PROPERTYPUT) != 0 ? Access::put : Access::put_reference;
  }
  if ((flags & DISPATCH_PROPERTYPUT) != 0) return Access::put;
  if ((flags & (DISPATCH_METHOD | DISPATCH_PROPERTYGET)) != 0) return Access::read;
  return std::nullopt;
}

Pointer<IDispatch> ComObject::make(const Object& object, Role role) {
  return Pointer<IDispatch>::adopt(new ComObject(object, role));
}

Object ComObject::unwrap(IDispatch& dispatch, Role role) {
  void* found = nullptr;
  if (FAILED(dispatch.QueryInterface(own_object_id(), &found)) || !found) return {};
  const auto own = Pointer<ComObject>::adopt(static_cast<ComObject*>(found));
  return own->role_ == role ? own->object_ : Object();
}

HRESULT ComObject::QueryInterface(REFIID id, void** out) {
  if (!out) return E_POINTER;
  if (id == IID_IUnknown || id == IID_IDispatch) {
    *out = static_cast<IDispatch*>(this);
  } else if (id == own_object_id()) {
    *out = this;
  } else {
    *out = nullptr;
    return E_NOINTERFACE;
  }
  AddRef();
  return S_OK;
}

ULONG ComObject::AddRef() {
  return ++references_;
}

ULONG ComObject::Release() {
  const ULONG left = --references_;
  if (left == 0) delete this;
  return left;
}

HRESULT ComObject::GetTypeInfoCount(UINT* count) {
  if (!count) return E_POINTER;
  *count = 0;
  return S_OK;
}

HRESULT ComObject::GetTypeInfo(UINT, LCID, ITypeInfo** info) {
  if (info) *info = nullptr;
  return E_NOTIMPL;
}

HRESULT ComObject::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
  if (!names || !ids) return E_POINTER;
  if (count == 0) return E_INVALIDARG;
  for (UINT i = 0; i < count; ++i) ids[i] = DISPID_UNKNOWN;
  if (!names[0]) return E_POINTER;
  try {
    const std::string name = to_utf8(names[0]);
    ids[0] = is_enumerable(object_) && equals_folded(name, enumerator_name) ? DISPID_NEWENUM
                                                                            : object_.resolve(name);
  } catch (...) {
    const Error error = current_error();
    return error.number() == error_number::no_such_member ? DISP_E_UNKNOWNNAME
                                                          : hresult_from_number(error.number());
  }
  // Parameters have no names here.
  return count == 1 ? S_OK : DISP_E_UNKNOWNNAME;
}

HRESULT ComObject::Invoke(DISPID id, REFIID reserved, LCID, WORD flags, DISPPARAMS* parameters,
                          VARIANT* result, EXCEPINFO* failure, UINT* argument_at_fault) {
  if (result) VariantInit(result);
  if (reserved != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
  const auto access = access_of(flags);
  if (!access || !parameters) return E_INVALIDARG;
  // A call may let go of the last reference from outside.
  const Pointer<ComObject> alive(this);
  try {
    return run(id, *access, *parameters, result);
  } catch (...) {
    const Error error = current_error();
    if (error.number() == error_number::no_such_member) return DISP_E_MEMBERNOTFOUND;
    if (const auto position = static_cast<UINT>(error.argument());
        position > 0 && position <= parameters->cArgs && argument_at_fault)
      *argument_at_fault = parameters->cArgs - position;
    if (!failure) return hresult_from_number(error.number());
    try {
      describe(*failure, error, {});
    } catch (const std::bad_alloc&) {
      return E_OUTOFMEMORY;
    }
    return DISP_E_EXCEPTION;
  }
}

HRESULT ComObject::run(DISPID id, Access access, const DISPPARAMS& parameters, VARIANT* result) {
  if (id == DISPID_NEWENUM && access == Access::read && is_enumerable(object_)) {
    if (!result) return S_OK;
    V_UNKNOWN(result) = Enumerator::make(object_).detach();
    V_VT(result) = VT_UNKNOWN;
    return S_OK;
  }
  IncomingArguments incoming(parameters, std::nullopt);
  const Arguments arguments = incoming.read();
  Value value;
  try {
    value = object_.invoke(id, access, arguments);
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
  if (result) *result = Variant(value, Role::callee).detach();
  return S_OK;
}

}  // namespace tallyra::automation::com
