#pragma once

#include <string_view>

#include "automation/object.h"

namespace tallyra::automation {

// A new object of the class registered under the ProgID, whatever its case. Throws Error 429 when there is
// none, and the error that it stands for when the system cannot create the object for another reason (70
// without the rights, 7 without memory, ...).
Object create(std::string_view prog_id);

}  // namespace tallyra::automation
