#pragma once

#include <oaidl.h>

#include "automation/com/pointer.h"
#include "automation/com/role.h"
#include "automation/object.h"

// Objects on their way over a COM edge.
namespace tallyra::automation::com {

// What the other side gets for an object: the COM object behind it, or one made for it. None for no object.
Pointer<IDispatch> dispatch_of(const Object& object, Role role);

// What this side gets for a COM object: its own object if it has handed that out before, else one that calls
// it.
Object object_of(IDispatch* dispatch, Role role);

}  // namespace tallyra::automation::com
