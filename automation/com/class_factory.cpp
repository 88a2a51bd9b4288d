#include "automation/com/class_factory.h"

#include "automation/error.h"

namespace tallyra::automation::com {

HRESULT ClassFactory::CreateInstance(IUnknown* outer, REFIID id, void** out) {
  if (!out) return E_POINTER;
  *out = nullptr;
  if (outer) return CLASS_E_NOAGGREGATION;
  try {
    return served_.make()->QueryInterface(id, out);
  } catch (...) {
    return hresult_from_number(current_error().number());
  }
}

HRESULT ClassFactory::LockServer(BOOL lock) {
  lock_module(lock != FALSE);
  return S_OK;
}

}  // namespace tallyra::automation::com
