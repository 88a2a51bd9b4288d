#pragma once

#include <oaidl.h>

#include <atomic>

#include "automation/com/module.h"
#include "automation/com/pointer.h"
#include "automation/enumerable.h"

namespace tallyra::automation::com {

// A walk over an object that is Enumerable, for a client's For Each.
class Enumerator final : public IEnumVARIANT {
 public:
  static Pointer<IUnknown> make(const Object& object);

  STDMETHODIMP QueryInterface(REFIID id, void** out) override;
  STDMETHODIMP_(ULONG) AddRef() override;
  STDMETHODIMP_(ULONG) Release() override;
  STDMETHODIMP Next(ULONG count, VARIANT* items, ULONG* fetched) override;
  STDMETHODIMP Skip(ULONG count) override;
  STDMETHODIMP Reset() override;
  STDMETHODIMP Clone(IEnumVARIANT** copy) override;

 private:
  Enumerator(const Object& object, std::size_t position) : walk_(object, position) {}
  ~Enumerator() = default;

  std::atomic<ULONG> references_ = 1;
  Walk walk_;
  ModuleUse module_use_;
};

}  // namespace tallyra::automation::com
