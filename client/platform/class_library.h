#pragma once

#include <string>

namespace tallyra::client {

// From where an automation class comes: the file of the library that is registered for it on the machine,
// "this program" where classes live in the process; "" for a class that is not registered.
std::string class_library(const std::string& prog_id);

}  // namespace tallyra::client
