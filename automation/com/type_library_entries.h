#pragma once

#include <oaidl.h>

#include <string>
#include <vector>

#include "automation/com/attempts.h"
#include "automation/com/registry_key.h"

// The entries of a type library and its interfaces in the registry. The system's own functions for that write
// for the machine even when asked for the user, on some systems, and undo nothing when they fail half-way.
namespace tallyra::automation::com {

// Calls over apartment borders go by the type library, so every interface names the system's marshaler for
// that. The interface of collections, which is not the library's own, is left alone. Throws Error.
void write_type_library(const ClassesBranch& branch, ITypeLib& library, const std::wstring& path);

// Takes away what write_type_library has written for the file with that path: where the version of the
// library points to another one, nothing. The version stays with its interfaces as long as it has entries for
// other files, and an interface that another library or version has taken over stays too. Throws Error when
// the library does not tell what it holds; all else is up to the attempts.
void remove_type_library(const ClassesBranch& branch, ITypeLib& library, const std::wstring& path,
                         Attempts& attempts);

// Keys above all that write_type_library writes to.
// Throws Error.
std::vector<std::wstring> type_library_keys(ITypeLib& library);

}  // namespace tallyra::automation::com
