#include "automation/com/registration.h"

#include <oleauto.h>

#include "automation/com/failure.h"
#include "automation/com/module.h"
#include "automation/com/registry_key.h"
#include "automation/com/type_library_entries.h"

namespace tallyra::automation::com {
namespace {

ClassesBranch branch_of(Scope scope) {
  return ClassesBranch(scope == Scope::user ? HKEY_CURRENT_USER : HKEY_LOCAL_MACHINE);
}

std::wstring versioned(const ServedClass& served) {
  return served.prog_id + L".1";
}

std::wstring class_key(const ServedClass& served) {
  return L"CLSID\\" + guid_text(served.class_id);
}

void write_class(const ClassesBranch& branch, const ServedClass& served, const ServedModule& module,
                 const std::wstring& path) {
  const std::wstring key = class_key(served);
  branch.set(key, nullptr, served.description);
  branch.set(key + L"\\InprocServer32", nullptr, path);
  branch.set(key + L"\\InprocServer32", L"ThreadingModel", L"Apartment");
  branch.set(key + L"\\ProgID", nullptr, versioned(served));
  branch.set(key + L"\\VersionIndependentProgID", nullptr, served.prog_id);
  branch.set(key + L"\\Programmable", nullptr, {});
  if (module.type_library) {
    branch.set(key + L"\\TypeLib", nullptr, guid_text(*module.type_library));
    branch.set(key + L"\\Version", nullptr, L"1.0");
  }

  branch.set(served.prog_id, nullptr, served.description);
  branch.set(served.prog_id + L"\\CLSID", nullptr, guid_text(served.class_id));
  branch.set(served.prog_id + L"\\CurVer", nullptr, versioned(served));

  branch.set(versioned(served), nullptr, served.description);
  branch.set(versioned(served) + L"\\CLSID", nullptr, guid_text(served.class_id));
}

// Whether a ProgID belongs to some other class.
bool is_foreign(const ClassesBranch& branch, const std::wstring& prog_id, const ServedClass& served) {
  const std::wstring owner = branch.text(prog_id + L"\\CLSID");
  return !owner.empty() && _wcsicmp(owner.c_str(), guid_text(served.class_id).c_str()) != 0;
}

Pointer<ITypeLib> type_library_in(const std::wstring& path) {
  Pointer<ITypeLib> library;
  throw_if_failed(LoadTypeLibEx(path.c_str(), REGKIND_NONE, library.out()));
  return library;
}

}  // namespace

HRESULT register_module(const ServedModule& module, Scope scope, Conflict conflict) {
  const ClassesBranch branch = branch_of(scope);
  try {
    for (const auto& served : module.classes)
      if (conflict == Conflict::refuse &&
          (is_foreign(branch, served.prog_id, served) || is_foreign(branch, versioned(served), served)))
        return HRESULT_FROM_WIN32(ERROR_ALREADY_EXISTS);
  } catch (...) {
    return hresult_from_number(current_error().number());
  }
  try {
    const std::wstring path = module_path();
    for (const auto& served : module.classes) write_class(branch, served, module, path);
    if (module.type_library) write_type_library(branch, *type_library_in(path).get(), path);
  } catch (...) {
    const HRESULT code = hresult_from_number(current_error().number());
    unregister_module(module, scope);
    return code;
  }
  return S_OK;
}

HRESULT unregister_module(const ServedModule& module, Scope scope) {
  const ClassesBranch branch = branch_of(scope);
  HRESULT first_failure = S_OK;
  const auto note = [&first_failure](HRESULT code) {
    if (FAILED(code) && SUCCEEDED(first_failure)) first_failure = code;
  };
  try {
    for (const auto& served : module.classes) {
      note(branch.remove(class_key(served)));
      for (const auto& prog_id : {served.prog_id, versioned(served)})
        if (!is_foreign(branch, prog_id, served)) note(branch.remove(prog_id));
    }
    if (module.type_library) note(remove_type_library(branch, *type_library_in(module_path()).get()));
  } catch (...) {
    note(hresult_from_number(current_error().number()));
  }
  return first_failure;
}

}  // namespace tallyra::automation::com
