#pragma once

#include <string_view>

#include "automation/object.h"

namespace tallyra::automation {

// A new object of the class registered under the ProgID, whatever its case. Throws Error 429 when there is
// none.
Object create(std::string_view prog_id);

}  // namespace tallyra::automation
