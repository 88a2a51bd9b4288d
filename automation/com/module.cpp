#include "automation/com/module.h"

#include <atomic>

#include "automation/com/failure.h"

namespace tallyra::automation::com {
namespace {

std::atomic<long> uses = 0;

}  // namespace

ModuleUse::ModuleUse() noexcept {
  ++uses;
}

ModuleUse::~ModuleUse() {
  --uses;
}

long module_uses() noexcept {
  return uses;
}

void lock_module(bool lock) noexcept {
  uses += lock ? 1 : -1;
}

HMODULE module_handle() {
  HMODULE handle = nullptr;
  GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                     reinterpret_cast<LPCWSTR>(&uses), &handle);
  return handle;
}

std::wstring module_path() {
  std::wstring path(MAX_PATH, L'\0');
  for (;;) {
    const DWORD length = GetModuleFileNameW(module_handle(), path.data(), static_cast<DWORD>(path.size()));
    if (length == 0) throw error_of(HRESULT_FROM_WIN32(GetLastError()));
    if (length < path.size()) {
      path.resize(length);
      return path;
    }
    path.resize(path.size() * 2);
  }
}

}  // namespace tallyra::automation::com
