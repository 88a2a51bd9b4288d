#include "automation/com/failure.h"

#include <oleauto.h>

#include <new>

#include "automation/com/pointer.h"
#include "automation/com/text.h"

namespace tallyra::automation::com {
namespace {

// Frees the texts of a description whatever becomes of it.
struct TextsToFree {
  EXCEPINFO& of;
  ~TextsToFree() { free_texts(of); }
};

}  // namespace

Error error_of(HRESULT code) {
  return Error(number_from_hresult(code));
}

void throw_if_failed(HRESULT code) {
  if (FAILED(code)) throw error_of(code);
}

Error error_of(EXCEPINFO& description) {
  const TextsToFree to_free{description};
  // A callee may postpone the texts, and the codes with them, until somebody wants to know.
  if (description.pfnDeferredFillIn) description.pfnDeferredFillIn(&description);
  std::int32_t number = description.wCode;
  if (description.scode)
    number = number_from_hresult(description.scode);
  else if (number == 0)
    number = number_from_hresult(DISP_E_EXCEPTION);
  const bool described = description.bstrDescription != nullptr;
  return described ? Error(number, text_of(description.bstrDescription)) : Error(number);
}

void free_texts(EXCEPINFO& description) noexcept {
  SysFreeString(description.bstrSource);
  SysFreeString(description.bstrDescription);
  SysFreeString(description.bstrHelpFile);
  description = {};
}

void describe(EXCEPINFO& out, const Error& error, const std::string& source) {
  out = {};
  out.scode = hresult_of_raised(error.number());
  try {
    out.bstrSource = new_bstr(source);
    out.bstrDescription = new_bstr(error.description());
  } catch (...) {
    // A caller that gets no description frees none.
    free_texts(out);
    throw;
  }
}

void set_error_object(REFIID interface_id, const Error& error, const std::string& source) noexcept {
  try {
    Pointer<ICreateErrorInfo> creator;
    if (FAILED(CreateErrorInfo(creator.out()))) return;
    creator->SetGUID(interface_id);
    creator->SetSource(to_utf16(source).data());
    creator->SetDescription(to_utf16(error.description()).data());
    if (const auto info = query<IErrorInfo>(creator.get())) SetErrorInfo(0, info.get());
  } catch (const std::bad_alloc&) {
    // The code alone has to do.
  }
}

}  // namespace tallyra::automation::com
