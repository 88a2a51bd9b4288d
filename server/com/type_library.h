#pragma once

#include <oaidl.h>

#include "automation/com/pointer.h"

namespace tallyra::server::com {

// The description of an interface or class in the type library that lies in this module. Throws Error when
// there is none.
automation::com::Pointer<ITypeInfo> type_info(REFGUID id);

// Whether the interface declares a member with that id, to be used in that way (INVOKE_FUNC, ...).
bool declares(ITypeInfo& interface_info, MEMBERID id, unsigned invoke_kinds);

}  // namespace tallyra::server::com
