#pragma once

#include <span>
#include <string>

#include "server/class_table.h"

namespace tallyra::server::describe {

// The entries of the console client's catalogue: each method with its arguments as one writes them there. "@"
// is where the collections come back that Read fills, "COLUMN=value..." stands for those that go in.
std::string client_catalogue(std::span<const ClassTable> classes);

}  // namespace tallyra::server::describe
