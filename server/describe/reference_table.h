#pragma once

#include <string>

#include "server/class_table.h"

namespace tallyra::server::describe {

// The table of a class's methods in the reference.
std::string reference_table(const ClassTable& table);

}  // namespace tallyra::server::describe
