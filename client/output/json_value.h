#pragma once

#include <nlohmann/json.hpp>
#include <string>

#include "automation/value.h"

namespace tallyra::client {

using Json = nlohmann::ordered_json;

// A whole number without ".0"; null for what JSON cannot write.
Json number_json(double number);

// Numbers are JSON numbers, except currency and decimal, which are text to stay exact. Dates are text,
// "YYYY/MM/DD" or "YYYY/MM/DD HH:MM:SS". Null, Empty and what is missing are null; an object or an opaque
// value is {"kind": its name}, no object is null.
Json value_json(const automation::Value& value);

// As text with a line end behind it; bytes that are no UTF-8 are replaced.
std::string json_text(const Json& json);

}  // namespace tallyra::client
