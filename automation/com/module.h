#pragma once

#include <windows.h>

#include <string>

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
void lock_module(bool lock) noexcept;

HMODULE module_handle();
// Throws Error when the system does not tell.
std::wstring module_path();

}  // namespace tallyra::automation::com
