#pragma once

#include <oaidl.h>

#include "automation/com/pointer.h"

namespace tallyra::automation::com {

// The description of an interface or class in the type library of this module (see module_type_library).
// Throws Error when there is none.
Pointer<ITypeInfo> type_info(REFGUID id);

// Whether an id belongs to what every interface inherits (QueryInterface, ..., Invoke). No such id is given
// to a member of the component's own.
bool is_inherited(MEMBERID id);

// Whether the interface itself declares a member with that id, to be used in that way (INVOKE_FUNC, ...).
bool declares(ITypeInfo& interface_info, MEMBERID id, unsigned invoke_kinds);

}  // namespace tallyra::automation::com
