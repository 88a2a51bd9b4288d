#include "automation/com/collection_object.h"

#include <oleauto.h>

#include <array>

#include "automation/com/type_library.h"
#include "automation/error.h"

namespace tallyra::automation::com {
namespace {

constexpr DISPID add_id = 1;
constexpr DISPID count_id = 2;
constexpr DISPID remove_id = 3;

constexpr std::string_view index_parameter[] = {"Index"};
constexpr std::string_view add_parameters[] = {"Item", "Key", "Before", "After"};

constexpr MemberSignature members[] = {{DISPID_VALUE, 1, index_parameter},
                                       {add_id, 1, add_parameters},
                                       {count_id, 0, {}},
                                       {remove_id, 1, index_parameter}};

constexpr ObjectSignature collection_signature{"Tallyra.Collection", members};

VARIANT left_out() {
  VARIANT variant;
  V_VT(&variant) = VT_ERROR;
  V_ERROR(&variant) = DISP_E_PARAMNOTFOUND;
  return variant;
}

// What an earlier call has left for its caller is not this call's.
HRESULT null_pointer() noexcept {
  SetErrorInfo(0, nullptr);
  return E_POINTER;
}

HRESULT hand_out_type(REFGUID id, ITypeInfo** info) noexcept {
  if (!info) return E_POINTER;
  *info = nullptr;
  try {
    *info = type_info(id).detach();
    return S_OK;
  } catch (...) {
    return hresult_from_number(current_error().number());
  }
}

}  // namespace

CollectionObject::CollectionObject(const Object& object, Role role)
    : calls_(object, role, collection_signature) {}

Pointer<IDispatch> CollectionObject::make(const Object& object, Role role) {
  return Pointer<IDispatch>::adopt(new CollectionObject(object, role));
}

void* CollectionObject::find_interface(REFIID id) {
  return id == IncomingCalls::own_id() ? &calls_ : CountedObject::find_interface(id);
}

HRESULT CollectionObject::GetTypeInfoCount(UINT* count) {
  if (!count) return E_POINTER;
  Pointer<ITypeInfo> info;
  *count = SUCCEEDED(hand_out_type(collection_interface_id, info.out())) ? 1 : 0;
  return S_OK;
}

HRESULT CollectionObject::GetTypeInfo(UINT index, LCID, ITypeInfo** info) {
  if (info) *info = nullptr;
  return index == 0 ? hand_out_type(collection_interface_id, info) : DISP_E_BADINDEX;
}

HRESULT CollectionObject::GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
  if (reserved != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
  return calls_.ids_of_names(names, count, ids);
}

HRESULT CollectionObject::Invoke(DISPID id, REFIID reserved, LCID, WORD flags, DISPPARAMS* parameters,
                                 VARIANT* result, EXCEPINFO* failure, UINT* argument_at_fault) {
  // A call may let go of the last reference from outside.
  const Pointer<CollectionObject> alive(this);
  return calls_.invoke(id, reserved, flags, parameters, result, failure, argument_at_fault);
}

HRESULT CollectionObject::call(DISPID id, std::initializer_list<const VARIANT*> arguments,
                               VARIANT* result) noexcept {
  // What an earlier call has left for its caller is not this call's.
  SetErrorInfo(0, nullptr);
  if (result) VariantInit(result);
  std::array<VARIANTARG, std::size(add_parameters)> wire;
  // The wire has the last argument first, and owns nothing.
  std::size_t place = arguments.size();
  for (const VARIANT* each : arguments) wire[--place] = each ? *each : left_out();
  const DISPPARAMS parameters{wire.data(), nullptr, static_cast<UINT>(arguments.size()), 0};
  const Pointer<CollectionObject> alive(this);
  return calls_.call(collection_interface_id, id, parameters, result);
}

HRESULT CollectionObject::Item(VARIANT* index, VARIANT* result) {
  if (result) VariantInit(result);
  if (!index || !result) return null_pointer();
  return call(DISPID_VALUE, {index}, result);
}

HRESULT CollectionObject::Add(VARIANT* item, VARIANT* key, VARIANT* before, VARIANT* after) {
  if (!item) return null_pointer();
  return call(add_id, {item, key, before, after}, nullptr);
}

HRESULT CollectionObject::get_Count(LONG* result) {
  if (!result) return E_POINTER;
  VARIANT count;
  const HRESULT code = call(count_id, {}, &count);
  *result = SUCCEEDED(code) ? V_I4(&count) : 0;
  return code;
}

HRESULT CollectionObject::Remove(VARIANT* index) {
  if (!index) return null_pointer();
  return call(remove_id, {index}, nullptr);
}

HRESULT CollectionObject::get__NewEnum(IUnknown** result) {
  if (!result) return E_POINTER;
  VARIANT walk;
  const HRESULT code = call(DISPID_NEWENUM, {}, &walk);
  *result = SUCCEEDED(code) ? V_UNKNOWN(&walk) : nullptr;
  return code;
}

HRESULT CollectionObject::InterfaceSupportsErrorInfo(REFIID id) {
  return id == collection_interface_id ? S_OK : S_FALSE;
}

HRESULT CollectionObject::GetClassInfo(ITypeInfo** info) {
  return hand_out_type(collection_class_id, info);
}

}  // namespace tallyra::automation::com
