#pragma once

#include <oaidl.h>

#include <string>
#include <vector>

#include "automation/com/registry_key.h"

// The entries of a type library and its interfaces in the registry. The system's own functions for that write
// for the machine even when asked for the user, on some systems, and undo nothing when they fail half-way.
namespace tallyra::automation::com {

// Calls over apartment borders go by the type library, so every interface names the system's marshaler for
// that. The interface of collections, which is not the library's own, is left alone. Throws Error.
void write_type_library(const ClassesBranch& branch, ITypeLib& library, const std::wstring& path);

// The keys that write_type_library writes to, each of which with everything below it is the library's own.
// Throws Error.
std::vector<std::wstring> type_library_keys(ITypeLib& library);

}  // namespace tallyra::automation::com
