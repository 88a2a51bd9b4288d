#pragma once

#include "automation/object.h"

namespace tallyra::memory {

// An object of another module, or what stands for one: nothing fails in it, and what it allocates does not
// count. So are the objects that it hands out.
automation::Object outside(const automation::Object& object);

}  // namespace tallyra::memory
