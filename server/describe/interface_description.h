#pragma once

#include <span>
#include <string>

#include "server/class_table.h"

// What the interface description says of the classes.
namespace tallyra::server::describe {

// Makes the interfaces known, so that each may name the others.
std::string interface_names(std::span<const ClassTable> classes);
// Throws std::invalid_argument for a default value that the description language cannot say.
std::string interfaces(std::span<const ClassTable> classes);
// The classes that a client creates, with the interfaces that they have.
std::string creatable_classes(std::span<const ClassTable> classes);

}  // namespace tallyra::server::describe
