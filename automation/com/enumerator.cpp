#include "automation/com/enumerator.h"

#include <algorithm>

#include "automation/com/failure.h"
#include "automation/com/variant.h"

namespace tallyra::automation::com {

Pointer<IUnknown> Enumerator::make(const Object& object) {
  return Pointer<IUnknown>::adopt(new Enumerator(object, 0));
}

HRESULT Enumerator::Next(ULONG count, VARIANT* items, ULONG* fetched) {
  if (fetched) *fetched = 0;
  if (!items || (count != 1 && !fetched)) return E_POINTER;
  ULONG done = 0;
  try {
    for (; done < count; ++done) {
      const auto item = walk_.item();
      if (!item) break;
      items[done] = Variant(*item, Role::callee).detach();
      walk_.move_to(walk_.position() + 1);
    }
  } catch (...) {
    const Error error = current_error();
    // The items of a failed call are nobody's.
    walk_.move_to(walk_.position() - done);
    while (done > 0) VariantClear(&items[--done]);
    return hresult_from_number(error.number());
  }
  if (fetched) *fetched = done;
  return done == count ? S_OK : S_FALSE;
}

HRESULT Enumerator::Skip(ULONG count) {
  try {
    const std::size_t skipped = std::min<std::size_t>(count, walk_.left());
    walk_.move_to(walk_.position() + skipped);
    return skipped == count ? S_OK : S_FALSE;
  } catch (...) {
    return hresult_from_number(current_error().number());
  }
}

HRESULT Enumerator::Reset() {
  walk_.move_to(0);
  return S_OK;
}

HRESULT Enumerator::Clone(IEnumVARIANT** copy) {
  if (!copy) return E_POINTER;
  *copy = nullptr;
  try {
    *copy = new Enumerator(walk_.object(), walk_.position());
    return S_OK;
  } catch (...) {
    return hresult_from_number(current_error().number());
  }
}

}  // namespace tallyra::automation::com
