#pragma once

#include <oaidl.h>

#include <atomic>

#include "automation/com/module.h"
#include "automation/com/pointer.h"
#include "automation/enumerable.h"

namespace tallyra::automation::com {

// Walks an object that is Enumerable for a client's For Each, item by item, as the object is at that moment.
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
  Enumerator(const Object& object, std::size_t position);
  ~Enumerator() = default;

  std::size_t left() const;

  std::atomic<ULONG> references_ = 1;
  Object object_;
  const Enumerable& items_;  // the same object
  std::size_t position_;
  ModuleUse module_use_;
};

}  // namespace tallyra::automation::com
