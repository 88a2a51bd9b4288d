#include "automation/com/byte_array.h"

#include <oleauto.h>

#include <cstring>
#include <new>

#include "automation/com/failure.h"

namespace tallyra::automation::com {

std::optional<std::string> bytes_in(SAFEARRAY* array) {
  if (!array || array->cDims != 1 || array->rgsabound[0].lLbound != 0) return std::nullopt;
  void* data = nullptr;
  throw_if_failed(SafeArrayAccessData(array, &data));
  std::string bytes;
  try {
    bytes.assign(static_cast<const char*>(data), array->rgsabound[0].cElements);
  } catch (...) {
    SafeArrayUnaccessData(array);
    throw;
  }
  SafeArrayUnaccessData(array);
  return bytes;
}

SAFEARRAY* new_byte_array(std::string_view bytes) {
  SAFEARRAY* array = SafeArrayCreateVector(VT_UI1, 0, static_cast<ULONG>(bytes.size()));
  if (!array) throw std::bad_alloc();
  std::memcpy(array->pvData, bytes.data(), bytes.size());
  return array;
}

}  // namespace tallyra::automation::com
