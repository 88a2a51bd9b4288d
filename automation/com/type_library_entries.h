#pragma once

#include <oaidl.h>

#include "automation/com/registry_key.h"

// The entries of a type library and its interfaces in the registry. The system's own functions for that write
// for the machine even when asked for the user, on some systems, and undo nothing when they fail half-way.
namespace tallyra::automation::com {

// Calls over apartment borders go by the type library, so every interface names the system's marshaler for
// that. Throws Error.
void write_type_library(const ClassesBranch& branch, ITypeLib& library, const std::wstring& path);

// Goes on after a failure and returns the first.
HRESULT remove_type_library(const ClassesBranch& branch, ITypeLib& library);

}  // namespace tallyra::automation::com
