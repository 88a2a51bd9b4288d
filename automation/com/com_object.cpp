#include "automation/com/com_object.h"

namespace tallyra::automation::com {
namespace {

constexpr ObjectSignature no_signature;

}  // namespace

ComObject::ComObject(const Object& object, Role role) : calls_(object, role, no_signature) {}

Pointer<IDispatch> ComObject::make(const Object& object, Role role) {
  return Pointer<IDispatch>::adopt(new ComObject(object, role));
}

HRESULT ComObject::QueryInterface(REFIID id, void** out) {
  if (!out) return E_POINTER;
  *out = nullptr;
  if (id == IID_IUnknown || id == IID_IDispatch)
    *out = static_cast<IDispatch*>(this);
  else if (id == IncomingCalls::own_id())
    *out = &calls_;
  if (!*out) return E_NOINTERFACE;
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
  return calls_.ids_of_names(names, count, ids);
}

HRESULT ComObject::Invoke(DISPID id, REFIID reserved, LCID, WORD flags, DISPPARAMS* parameters,
                          VARIANT* result, EXCEPINFO* failure, UINT* argument_at_fault) {
  // A call may let go of the last reference from outside.
  const Pointer<ComObject> alive(this);
  return calls_.invoke(id, reserved, flags, parameters, result, failure, argument_at_fault);
}

}  // namespace tallyra::automation::com
