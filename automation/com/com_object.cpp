#include "automation/com/com_object.h"

namespace tallyra::automation::com {
namespace {

constexpr ObjectSignature no_signature;

}  // namespace

ComObject::ComObject(const Object& object, Role role) : calls_(object, role, no_signature) {}

Pointer<IDispatch> ComObject::make(const Object& object, Role role) {
  return Pointer<IDispatch>::adopt(new ComObject(object, role));
}

void* ComObject::find_interface(REFIID id) {
  return id == IncomingCalls::own_id() ? &calls_ : CountedObject::find_interface(id);
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
