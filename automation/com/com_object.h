#pragma once

#include <oaidl.h>

#include <atomic>
#include <optional>

#include "automation/com/module.h"
#include "automation/com/pointer.h"
#include "automation/com/role.h"
#include "automation/object.h"

namespace tallyra::automation::com {

// An object of this module as other modules see it. What is Enumerable can be walked by a For Each.
class ComObject final : public IDispatch {
 public:
  static Pointer<IDispatch> make(const Object& object, Role role);
  // The object behind a ComObject that this module has made in that role; none for any other object.
  static Object unwrap(IDispatch& dispatch, Role role);

  STDMETHODIMP QueryInterface(REFIID id, void** out) override;
  STDMETHODIMP_(ULONG) AddRef() override;
  STDMETHODIMP_(ULONG) Release() override;
  STDMETHODIMP GetTypeInfoCount(UINT* count) override;
  STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override;
  STDMETHODIMP GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale, DISPID* ids) override;
  STDMETHODIMP Invoke(DISPID id, REFIID reserved, LCID locale, WORD flags, DISPPARAMS* parameters,
                      VARIANT* result, EXCEPINFO* failure, UINT* argument_at_fault) override;

 private:
  ComObject(Object object, Role role) : object_(std::move(object)), role_(role) {}
  ~ComObject() = default;

  HRESULT run(DISPID id, Access access, const DISPPARAMS& parameters, VARIANT* result);

  std::atomic<ULONG> references_ = 1;
  Object object_;
  Role role_;
  ModuleUse module_use_;
};

// What Invoke's flags ask for; nothing when they ask for nothing that is known.
std::optional<Access> access_of(WORD flags);

}  // namespace tallyra::automation::com
