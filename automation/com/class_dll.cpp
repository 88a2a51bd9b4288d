#include <windows.h>

#include <string_view>

#include "automation/com/class_factory.h"
#include "automation/com/failure.h"
#include "automation/com/module.h"
#include "automation/com/registration.h"

// The entry points that COM and the registration tools look for in a DLL.

using namespace tallyra::automation;

STDAPI DllGetClassObject(REFCLSID class_id, REFIID id, void** out) {
  if (!out) return E_POINTER;
  *out = nullptr;
  try {
    for (const auto& served : com::served_module().classes)
      if (served.class_id == class_id)
        return com::Pointer<com::ClassFactory>::adopt(new com::ClassFactory(served))->QueryInterface(id, out);
    return CLASS_E_CLASSNOTAVAILABLE;
  } catch (...) {
    return hresult_from_number(current_error().number());
  }
}

STDAPI DllCanUnloadNow() {
  return com::module_uses() == 0 ? S_OK : S_FALSE;
}

STDAPI DllRegisterServer() {
  return com::register_module(com::served_module(), com::Scope::machine, com::Conflict::refuse);
}

STDAPI DllUnregisterServer() {
  return com::unregister_module(com::served_module(), com::Scope::machine);
}

// Words of the command line: "user" for the current user alone, "replace" to take a ProgID from another
// class.
STDAPI DllInstall(BOOL install, PCWSTR command_line) {
  const std::wstring_view words = command_line ? command_line : L"";
  const auto has = [words](std::wstring_view word) { return words.find(word) != std::wstring_view::npos; };
  const com::Scope scope = has(L"user") ? com::Scope::user : com::Scope::machine;
  if (!install) return com::unregister_module(com::served_module(), scope);
  return com::register_module(com::served_module(), scope,
                              has(L"replace") ? com::Conflict::replace : com::Conflict::refuse);
}
