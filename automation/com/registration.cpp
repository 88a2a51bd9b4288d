#include "automation/com/registration.h"

#include <oleauto.h>

#include <array>
#include <optional>
#include <utility>
#include <vector>

#include "automation/com/attempts.h"
#include "automation/com/failure.h"
#include "automation/com/file_path.h"
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

// Names the file that the class is in.
std::wstring file_key(const ServedClass& served) {
  return class_key(served) + L"\\InprocServer32";
}

void write_class(const ClassesBranch& branch, const ServedClass& served, const ServedModule& module,
                 const std::wstring& path) {
  const std::wstring key = class_key(served);
  branch.set(key, nullptr, served.description);
  branch.set(file_key(served), nullptr, path);
  branch.set(file_key(served), L"ThreadingModel", L"Apartment");
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

std::array<std::wstring, 2> prog_ids(const ServedClass& served) {
  return {served.prog_id, versioned(served)};
}

// Whether a ProgID belongs to some other class.
bool is_foreign(const ClassesBranch& branch, const std::wstring& prog_id, const ServedClass& served) {
  const std::wstring owner = branch.text(prog_id + L"\\CLSID");
  return !owner.empty() && _wcsicmp(owner.c_str(), guid_text(served.class_id).c_str()) != 0;
}

// Programs find a ProgID in both branches, the user's first.
bool is_foreign_anywhere(const std::wstring& prog_id, const ServedClass& served) {
  return is_foreign(branch_of(Scope::machine), prog_id, served) ||
         is_foreign(branch_of(Scope::user), prog_id, served);
}

bool takes_from_others(const ServedModule& module) {
  for (const auto& served : module.classes)
    for (const auto& prog_id : prog_ids(served))
      if (is_foreign_anywhere(prog_id, served)) return true;
  return false;
}

// Where a class keeps what a ProgID was before it took the ProgID from another class.
std::wstring replaced_key(const ServedClass& served, const std::wstring& prog_id) {
  return class_key(served) + L"\\Replaced\\" + prog_id;
}

void keep_replaced(const ClassesBranch& branch, const ServedClass& served) {
  for (const auto& prog_id : prog_ids(served))
    if (is_foreign(branch, prog_id, served))
      branch.restore(replaced_key(served, prog_id), branch.copy(prog_id));
}

void remove_class(const ClassesBranch& branch, const ServedClass& served, Attempts& attempts) {
  for (const auto& prog_id : prog_ids(served))
    attempts.run([&] {
      if (!is_foreign(branch, prog_id, served))
        branch.restore(prog_id, branch.copy(replaced_key(served, prog_id)));
    });
  attempts.run([&] { branch.remove(class_key(served)); });
}

// The state of all keys that a registration may write to.
class StateBefore {
 public:
  StateBefore(const ClassesBranch& branch, const ServedModule& module, ITypeLib* library) : branch_(branch) {
    for (const auto& served : module.classes) {
      keep(class_key(served));
      for (const auto& prog_id : prog_ids(served)) keep(prog_id);
    }
    if (library)
      for (const auto& key : type_library_keys(*library)) keep(key);
  }

  // Goes on after a failure.
  void restore() const noexcept {
    for (const auto& [key, tree] : keys_) try {
        branch_.restore(key, tree);
      } catch (...) {
        // The error that has led here is the one to tell.
      }
  }

 private:
  void keep(const std::wstring& key) { keys_.emplace_back(key, branch_.copy(key)); }

  const ClassesBranch& branch_;
  std::vector<std::pair<std::wstring, std::optional<RegistryTree>>> keys_;
};

}  // namespace

HRESULT register_module(const ServedModule& module, Scope scope, Conflict conflict) {
  const ModuleUse use;
  const ClassesBranch branch = branch_of(scope);
  std::optional<StateBefore> before;
  try {
    if (conflict == Conflict::refuse && takes_from_others(module))
      return HRESULT_FROM_WIN32(ERROR_ALREADY_EXISTS);
    const std::wstring path = module_path();
    const auto library = module.type_library ? module_type_library() : Pointer<ITypeLib>();
    before.emplace(branch, module, library.get());
    for (const auto& served : module.classes) {
      keep_replaced(branch, served);
      write_class(branch, served, module, path);
    }
    if (library) write_type_library(branch, *library.get(), path);
  } catch (...) {
    const HRESULT code = hresult_from_number(current_error().number());
    if (before) before->restore();
    return code;
  }
  return S_OK;
}

HRESULT unregister_module(const ServedModule& module, Scope scope) {
  const ModuleUse use;
  const ClassesBranch branch = branch_of(scope);
  Attempts attempts;
  attempts.run([&] {
    const std::wstring path = module_path();
    for (const auto& served : module.classes)
      if (is_same_path(branch.text(file_key(served)), path)) remove_class(branch, served, attempts);
    if (module.type_library) remove_type_library(branch, *module_type_library().get(), path, attempts);
  });
  return attempts.first_failure();
}

}  // namespace tallyra::automation::com
