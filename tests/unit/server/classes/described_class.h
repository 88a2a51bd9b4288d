#pragma once

#include <string>
#include <string_view>

#include "server/class_table.h"

// A class table in words.
namespace tallyra::server {

// A line per method, or per property, of a class:
// "13 Insert(pCloseDT variant, &colFieldName collection): single", "&" for by reference, "=" for a default.
std::string described(const ClassTable& table, bool methods);
// Of the class with that name, "no such class" without one.
std::string methods_of(std::string_view name);

}  // namespace tallyra::server
