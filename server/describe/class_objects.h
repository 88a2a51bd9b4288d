#pragma once

#include <span>
#include <string>

#include "server/class_table.h"

// The C++ that makes COM objects of the classes.
namespace tallyra::server::describe {

// A class for each, whose slots pass their arguments on under the members' ids.
std::string class_objects(std::span<const ClassTable> classes);
// The entries of the list of classes that the DLL offers.
std::string served_classes(std::span<const ClassTable> classes);

}  // namespace tallyra::server::describe
