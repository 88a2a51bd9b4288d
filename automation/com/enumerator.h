#pragma once

#include <oaidl.h>

#include <atomic>

#include "automation/com/module.h"
#include "automation/com/pointer.h"
#include "automation/object.h"

namespace tallyra::automation::com {

// Walks a collection for a client's For Each, item by item, as the collection is at that moment.
class Enumerator final : public IEnumVARIANT {
 public:
  static Pointer<IUnknown> make(const Object& collection);

  STDMETHODIMP QueryInterface(REFIID id, void** out) override;
  STDMETHODIMP_(ULONG) AddRef() override;
  STDMETHODIMP_(ULONG) Release() override;
  STDMETHODIMP Next(ULONG count, VARIANT* items, ULONG* fetched) override;
  STDMETHODIMP Skip(ULONG count) override;
  STDMETHODIMP Reset() override;
  STDMETHODIMP Clone(IEnumVARIANT** copy) override;

 private:
  Enumerator(const Object& collection, std::size_t position) : collection_(collection), position_(position) {}
  ~Enumerator() = default;

  std::size_t left() const;

  std::atomic<ULONG> references_ = 1;
  Object collection_;
  std::size_t position_;
  ModuleUse module_use_;
};

}  // namespace tallyra::automation::com
