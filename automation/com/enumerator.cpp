#include "automation/com/enumerator.h"

#include <algorithm>
#include <new>

#include "automation/com/failure.h"
#include "automation/com/variant.h"

namespace tallyra::automation::com {

Enumerator::Enumerator(const Object& object, std::size_t position)
    : object_(object), items_(dynamic_cast<const Enumerable&>(*object.dispatch())), position_(position) {}

Pointer<IUnknown> Enumerator::make(const Object& object) {
  return Pointer<IUnknown>::adopt(new Enumerator(object, 0));
}

std::size_t Enumerator::left() const {
  const std::size_t size = items_.item_count();
  return size - std::min(position_, size);
}

HRESULT Enumerator::QueryInterface(REFIID id, void** out) {
  if (!out) return E_POINTER;
  if (id != IID_IUnknown && id != IID_IEnumVARIANT) {
    *out = nullptr;
    return E_NOINTERFACE;
  }
  *out = static_cast<IEnumVARIANT*>(this);
  AddRef();
  return S_OK;
}

ULONG Enumerator::AddRef() {
  return ++references_;
}

ULONG Enumerator::Release() {
  const ULONG remaining = --references_;
  if (remaining == 0) delete this;
  return remaining;
}

HRESULT Enumerator::Next(ULONG count, VARIANT* items, ULONG* fetched) {
  if (fetched) *fetched = 0;
  if (!items || (count != 1 && !fetched)) return E_POINTER;
  ULONG done = 0;
  try {
    for (; done < count && left() > 0; ++done) {
      items[done] = Variant(items_.item_at(position_), Role::callee).detach();
      ++position_;
    }
  } catch (...) {
    const Error error = current_error();
    // The items of a failed call are nobody's.
    position_ -= done;
    while (done > 0) VariantClear(&items[--done]);
    return hresult_from_number(error.number());
  }
  if (fetched) *fetched = done;
  return done == count ? S_OK : S_FALSE;
}

HRESULT Enumerator::Skip(ULONG count) {
  try {
    const std::size_t skipped = std::min<std::size_t>(count, left());
    position_ += skipped;
    return skipped == count ? S_OK : S_FALSE;
  } catch (...) {
    return hresult_from_number(current_error().number());
  }
}

HRESULT Enumerator::Reset() {
  position_ = 0;
  return S_OK;
}

HRESULT Enumerator::Clone(IEnumVARIANT** copy) {
  if (!copy) return E_POINTER;
  *copy = new (std::nothrow) Enumerator(object_, position_);
  return *copy ? S_OK : E_OUTOFMEMORY;
}

}  // namespace tallyra::automation::com
