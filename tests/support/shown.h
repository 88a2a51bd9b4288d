#pragma once

#include <string>

#include "automation/object.h"
#include "automation/value.h"

namespace tallyra::stage {

// An argument as it stands in a transcript: texts in quotes, objects by their names.
std::string shown(const automation::Value& value);
// All of them, each behind a blank.
std::string shown(automation::Arguments arguments);

}  // namespace tallyra::stage
