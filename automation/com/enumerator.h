#pragma once

#include <oaidl.h>

#include "automation/com/counted_object.h"
#include "automation/com/pointer.h"
#include "automation/enumerable.h"

namespace tallyra::automation::com {

// A walk over an object that is Enumerable, for a client's For Each.
class Enumerator final : public CountedObject<IEnumVARIANT> {
 public:
  static Pointer<IUnknown> make(const Object& object);

  STDMETHODIMP Next(ULONG count, VARIANT* items, ULONG* fetched) override;
  STDMETHODIMP Skip(ULONG count) override;
  STDMETHODIMP Reset() override;
  STDMETHODIMP Clone(IEnumVARIANT** copy) override;

 private:
  Enumerator(const Object& object, std::size_t position) : walk_(object, position) {}
  ~Enumerator() = default;

  Walk walk_;
};

}  // namespace tallyra::automation::com
