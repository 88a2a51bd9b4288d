#include <windows.h>

#include <string_view>

#include "automation/com/class_factory.h"
#include "automation/com/failure.h"
#include "automation/com/module.h"
#include "automation/com/registration.h"
#include "automation/com/runtime_threads.h"

// The entry points that the system, COM and the registration tools look for in a DLL.

using namespace tallyra::automation;

namespace {

bool is_same_word(std::wstring_view word, std::wstring_view known) {
  return word.size() == known.size() && _wcsnicmp(word.data(), known.data(), word.size()) == 0;
}

// What an entry point answers. Whatever goes wrong inside is a code outside.
template <class Step>
HRESULT answer_of(Step&& step) noexcept {
  try {
    return step();
  } catch (...) {
    return hresult_from_number(current_error().number());
  }
}

}  // namespace

// Called under the loader's lock: nothing of another module but the system's basic functions.
extern "C" BOOL WINAPI DllMain(HINSTANCE, DWORD reason, void* process_ends) {
  if (reason == DLL_THREAD_DETACH) com::release_values_of_thread();
  if (reason == DLL_PROCESS_DETACH && process_ends) com::leave_values_to_process();
  return TRUE;
}

STDAPI DllGetClassObject(REFCLSID class_id, REFIID id, void** out) {
  if (!out) return E_POINTER;
  *out = nullptr;
  return answer_of([&] {
    for (const auto& served : com::served_module().classes)
      if (served.class_id == class_id)
        return com::Pointer<com::ClassFactory>::adopt(new com::ClassFactory(served))->QueryInterface(id, out);
    return CLASS_E_CLASSNOTAVAILABLE;
  });
}

STDAPI DllCanUnloadNow() {
  return com::may_unload_module() ? S_OK : S_FALSE;
}

STDAPI DllRegisterServer() {
  return answer_of(
      [] { return com::register_module(com::served_module(), com::Scope::machine, com::Conflict::refuse); });
}

STDAPI DllUnregisterServer() {
  return answer_of([] { return com::unregister_module(com::served_module(), com::Scope::machine); });
}

// Words of the command line, in any case: "user" for the current user alone, "replace" to take a ProgID from
// another class. Any other word is E_INVALIDARG.
STDAPI DllInstall(BOOL install, PCWSTR command_line) {
  com::Scope scope = com::Scope::machine;
  com::Conflict conflict = com::Conflict::refuse;
  constexpr std::wstring_view blanks = L" \t";
  std::wstring_view rest = command_line ? command_line : L"";
  while (rest.find_first_not_of(blanks) != rest.npos) {
    rest.remove_prefix(rest.find_first_not_of(blanks));
    const std::wstring_view word = rest.substr(0, rest.find_first_of(blanks));
    rest.remove_prefix(word.size());
    if (is_same_word(word, L"user"))
      scope = com::Scope::user;
    else if (is_same_word(word, L"replace"))
      conflict = com::Conflict::replace;
    else
      return E_INVALIDARG;
  }
  return answer_of([&] {
    if (!install) return com::unregister_module(com::served_module(), scope);
    return com::register_module(com::served_module(), scope, conflict);
  });
}
