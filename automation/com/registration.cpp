#include "automation/com/registration.h"

#include <oleauto.h>

#include "automation/com/failure.h"
#include "automation/com/module.h"
#include "automation/com/registry_key.h"

// In the import library, but in no header of the compiler.
extern "C" HRESULT WINAPI RegisterTypeLibForUser(ITypeLib* library, OLECHAR* path, OLECHAR* help_folder);
extern "C" HRESULT WINAPI UnRegisterTypeLibForUser(REFGUID id, WORD major, WORD minor, LCID locale,
                                                   SYSKIND system);

namespace tallyra::automation::com {
namespace {

constexpr WORD major_version = 1;
constexpr WORD minor_version = 0;

ClassesBranch branch_of(Scope scope) {
  return ClassesBranch(scope == Scope::user ? HKEY_CURRENT_USER : HKEY_LOCAL_MACHINE);
}

std::wstring guid_text(REFGUID guid) {
  wchar_t text[39];
  StringFromGUID2(guid, text, 39);
  return text;
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

void write_type_library(Scope scope, std::wstring path) {
  Pointer<ITypeLib> library;
  throw_if_failed(LoadTypeLibEx(path.c_str(), REGKIND_NONE, library.out()));
  throw_if_failed(scope == Scope::user ? RegisterTypeLibForUser(library.get(), path.data(), nullptr)
                                       : RegisterTypeLib(library.get(), path.data(), nullptr));
}

HRESULT remove_type_library(const GUID& id, Scope scope) {
  const auto remove = scope == Scope::user ? UnRegisterTypeLibForUser : UnRegisterTypeLib;
  const HRESULT code = remove(id, major_version, minor_version, LOCALE_NEUTRAL, SYS_WIN32);
  return code == TYPE_E_REGISTRYACCESS || code == HRESULT_FROM_WIN32(ERROR_FILE_NOT_FOUND) ? S_OK : code;
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
    if (module.type_library) write_type_library(scope, path);
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
  } catch (...) {
    note(hresult_from_number(current_error().number()));
  }
  if (module.type_library) note(remove_type_library(*module.type_library, scope));
  return first_failure;
}

}  // namespace tallyra::automation::com
