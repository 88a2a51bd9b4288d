#pragma once

#include <oaidl.h>

#include <string>

#include "automation/com/pointer.h"

// The DLL or program that this code is linked into.
namespace tallyra::automation::com {

// Whatever lives in this module and is reachable from outside holds one: the module must not be unloaded
// while any is left.
class ModuleUse {
 public:
  ModuleUse() noexcept;
  ModuleUse(const ModuleUse&) noexcept : ModuleUse() {}
  ModuleUse& operator=(const ModuleUse&) = default;
  ~ModuleUse();
};

// The number of uses and locks.
long module_uses() noexcept;
// Whether nothing is in use, so that the module may be unloaded. To be asked by somebody who has the module
// loaded.
bool may_unload_module() noexcept;

// A lock is a use. Unlocking more often than locking changes nothing.
void lock_module(bool lock) noexcept;

// The first type library resource of the module: loaded when it is first asked for, the same for everyone,
// and let go with the last use that calls nobody back; so whoever asks holds one. One thread at a time loads
// it or lets it go, because there are systems whose list of type libraries breaks otherwise. Throws Error
// when there is none.
Pointer<ITypeLib> module_type_library();

// A use during which the system calls the module back, on the thread that begins it. The module then holds a
// reference to itself too: a host that frees it without asking would take away the code that is called.
void begin_called_back_use() noexcept;
// The caller frees what comes back, by FreeLibrary and as the last thing that the module does.
[[nodiscard]] HMODULE end_called_back_use() noexcept;
// In place of the above at the end of a thread, under the loader's lock: nothing but counting. The reference
// goes when somebody asks whether the module may be unloaded.
void abandon_called_back_use() noexcept;

HMODULE module_handle();
// Throws Error when the system does not tell.
std::wstring module_path();

}  // namespace tallyra::automation::com
