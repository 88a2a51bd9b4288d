#include "automation/com/module.h"

#include <oleauto.h>

#include <atomic>
#include <mutex>
#include <utility>

#include "automation/com/failure.h"

namespace tallyra::automation::com {
namespace {

std::atomic<long> uses = 0;
// Apart from the others, because the type library does not wait for their end.
std::atomic<long> called_back_uses = 0;
std::atomic<long> locks = 0;
std::atomic<long> abandoned_references = 0;

std::mutex type_library_mutex;
// Not a Pointer: whatever is still held when the module is unloaded must not be called any more.
ITypeLib* type_library = nullptr;

// Takes one off unless that leaves fewer than `least`.
bool take_off(std::atomic<long>& count, long least) noexcept {
  long now = count;
  while (now > least)
    if (count.compare_exchange_weak(now, now - 1)) return true;
  return false;
}

void let_type_library_go() noexcept {
  if (ITypeLib* const gone = std::exchange(type_library, nullptr)) gone->Release();
}

void end_use() noexcept {
  if (take_off(uses, 1)) return;
  // The last one counts until the type library has gone: the module must be there meanwhile.
  const std::lock_guard lock(type_library_mutex);
  if (uses == 1) let_type_library_go();
  take_off(uses, 0);
}

}  // namespace

ModuleUse::ModuleUse() noexcept {
  ++uses;
}

ModuleUse::~ModuleUse() {
  end_use();
}

long module_uses() noexcept {
  return uses + called_back_uses;
}

bool may_unload_module() noexcept {
  if (module_uses() != 0) return false;
  {
    const std::lock_guard lock(type_library_mutex);
    if (uses == 0) let_type_library_go();
  }
  while (take_off(abandoned_references, 0)) FreeLibrary(module_handle());
  return module_uses() == 0;
}

void lock_module(bool lock) noexcept {
  if (lock) {
    ++uses;
    ++locks;
  } else if (take_off(locks, 0)) {
    end_use();
  }
}

void begin_called_back_use() noexcept {
  ++called_back_uses;
  HMODULE held = nullptr;
  GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS, reinterpret_cast<LPCWSTR>(&uses), &held);
}

HMODULE end_called_back_use() noexcept {
  take_off(called_back_uses, 0);
  return module_handle();
}

void abandon_called_back_use() noexcept {
  ++abandoned_references;
  take_off(called_back_uses, 0);
}

Pointer<ITypeLib> module_type_library() {
  const std::lock_guard lock(type_library_mutex);
  if (!type_library) throw_if_failed(LoadTypeLibEx(module_path().c_str(), REGKIND_NONE, &type_library));
  return Pointer<ITypeLib>(type_library);
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
