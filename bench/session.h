#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "automation/object.h"

namespace tallyra::bench {

// A business object with a session of the administrator.
automation::Object session(const std::string& connection_string, const std::string& class_name);

automation::Value collection(const std::vector<automation::Value>& items);

// Throws std::runtime_error with the error fields unless the method has answered 100 without an error.
void require_success(const automation::Object& object, const automation::Value& result);

// The column N of the first row.
std::uint64_t count_rows(const std::string& connection_string, const std::string& query);

}  // namespace tallyra::bench
