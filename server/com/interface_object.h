#pragma once

#include <ocidl.h>

#include <array>
#include <type_traits>

#include "automation/com/counted_object.h"
#include "automation/com/pointer.h"
#include "automation/com/type_library.h"
#include "server/com/dispatcher.h"
#include "server/com/wire.h"

namespace tallyra::server::com {

// A business object as COM sees it: its dual interface, descriptions of itself and of its errors. A class
// adds the slots of its interface, see class_objects.h.
template <class Interface>
class InterfaceObject
    : public automation::com::CountedObject<Interface, ISupportErrorInfo, IProvideClassInfo2> {
 public:
  InterfaceObject(std::string_view name, REFCLSID class_id)
      : dispatcher_(name, __uuidof(Interface)), class_id_(class_id) {}

  STDMETHODIMP GetTypeInfoCount(UINT* count) override {
    if (!count) return E_POINTER;
    *count = 1;
    return S_OK;
  }
  STDMETHODIMP GetTypeInfo(UINT index, LCID, ITypeInfo** info) override {
    return dispatcher_.GetTypeInfo(index, info);
  }
  STDMETHODIMP GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID, DISPID* ids) override {
    return dispatcher_.GetIDsOfNames(reserved, names, count, ids);
  }
  STDMETHODIMP Invoke(DISPID id, REFIID reserved, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                      EXCEPINFO* failure, UINT* argument_at_fault) override {
    const automation::com::Pointer<InterfaceObject> alive(this);
    return dispatcher_.Invoke(id, reserved, flags, parameters, result, failure, argument_at_fault);
  }

  STDMETHODIMP InterfaceSupportsErrorInfo(REFIID id) override {
    return id == __uuidof(Interface) ? S_OK : S_FALSE;
  }

  STDMETHODIMP GetClassInfo(ITypeInfo** info) override {
    if (!info) return E_POINTER;
    *info = nullptr;
    try {
      *info = automation::com::type_info(class_id_).detach();
      return S_OK;
    } catch (...) {
      return automation::hresult_from_number(automation::current_error().number());
    }
  }
  STDMETHODIMP GetGUID(DWORD kind, GUID* id) override {
    if (!id) return E_POINTER;
    *id = event_interface();
    return kind == GUIDKIND_DEFAULT_SOURCE_DISP_IID && *id != GUID{} ? S_OK : E_INVALIDARG;
  }

 protected:
  // The interface of the events that the class is the source of; none by default.
  virtual GUID event_interface() const { return {}; }

  // Runs a method with the arguments of its interface member, in their order. A reference to nowhere leaves
  // an optional argument out: callers of the interface have no other way to do that.
  template <class Result, class... Arguments>
  HRESULT call(DISPID id, Result* result, Arguments... arguments) noexcept {
    // What an earlier call has left for its caller is not this call's.
    SetErrorInfo(0, nullptr);
    if (!result) return E_POINTER;
    *result = Result();
    std::size_t place = 0;
    if ((points_nowhere_wrongly(id, place++, arguments) || ...)) return E_POINTER;
    const automation::com::Pointer<InterfaceObject> alive(this);
    automation::Value value;
    const HRESULT code = run(id, automation::Access::read, value, arguments...);
    if (FAILED(code)) return code;
    try {
      hand_out(value, *result);
      return S_OK;
    } catch (...) {
      return automation::hresult_from_number(automation::current_error().number());
    }
  }

  // Writes a property.
  HRESULT put(DISPID id, BSTR text) noexcept {
    SetErrorInfo(0, nullptr);
    const automation::com::Pointer<InterfaceObject> alive(this);
    automation::Value nothing;
    return run(id, automation::Access::put, nothing, text);
  }

 private:
  template <class... Arguments>
  HRESULT run(DISPID id, automation::Access access, automation::Value& value,
              const Arguments&... arguments) noexcept {
    // The wire has the last argument first.
    std::array<VARIANTARG, sizeof...(Arguments) + 1> wire;
    std::size_t place = sizeof...(Arguments);
    ((wire[--place] = points_nowhere(arguments) ? left_out_form() : wire_form(arguments)), ...);
    DISPPARAMS parameters{wire.data(), nullptr, sizeof...(Arguments), 0};
    return dispatcher_.call(id, access, parameters, value);
  }

  // A text by value may be a null pointer, a reference may not.
  template <class T>
  static bool points_nowhere(const T& argument) {
    if constexpr (std::is_pointer_v<T> && !std::is_same_v<T, BSTR>)
      return argument == nullptr;
    else
      return false;
  }

  template <class T>
  bool points_nowhere_wrongly(DISPID id, std::size_t place, const T& argument) const {
    return points_nowhere(argument) && !dispatcher_.may_be_left_out(id, place);
  }

  Dispatcher dispatcher_;
  CLSID class_id_;
};

}  // namespace tallyra::server::com
