#pragma once

#include "automation/com/served_module.h"

// The entries of a module in the system's registry of classes.
namespace tallyra::automation::com {

// For every user of the machine, or for the current one.
enum class Scope { machine, user };

// What happens to a ProgID that some other class has already, for the machine or for the current user. One
// that is replaced goes back to its former class when the module is unregistered.
enum class Conflict { refuse, replace };

// All or nothing: when anything fails, everything is again as it was before and the code says why (0x80070005
// without the rights, 0x800700B7 for a ProgID of another class).
HRESULT register_module(const ServedModule& module, Scope scope, Conflict conflict);

// Takes away what register_module has written of this very copy of the module, and gives back what it has
// replaced: a class or type library that another copy has registered since stays with all that belongs to it.
// What is not there is no error. Goes on after a failure and returns the first.
HRESULT unregister_module(const ServedModule& module, Scope scope);

}  // namespace tallyra::automation::com
