#pragma once

#include <oaidl.h>

#include "automation/com/counted_object.h"
#include "automation/com/incoming_calls.h"
#include "automation/com/pointer.h"
#include "automation/com/role.h"
#include "automation/object.h"

namespace tallyra::automation::com {

// An object of this module as other modules see it: to be called by name, without a description of itself.
// What is Enumerable can be walked by a For Each.
class ComObject final : public CountedObject<IDispatch> {
 public:
  static Pointer<IDispatch> make(const Object& object, Role role);

  STDMETHODIMP GetTypeInfoCount(UINT* count) override;
  STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override;
  STDMETHODIMP GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale, DISPID* ids) override;
  STDMETHODIMP Invoke(DISPID id, REFIID reserved, LCID locale, WORD flags, DISPPARAMS* parameters,
                      VARIANT* result, EXCEPINFO* failure, UINT* argument_at_fault) override;

 private:
  ComObject(const Object& object, Role role);
  ~ComObject() = default;

  void* find_interface(REFIID id) override;

  IncomingCalls calls_;
};

}  // namespace tallyra::automation::com
