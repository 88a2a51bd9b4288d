#pragma once

#include <string>
#include <string_view>

#include "server/class_table.h"

// How the parts of a description are written in more than one place.
namespace tallyra::server::describe {

// The type of an interface's parameter, alike in C++ and in the interface description. The result is a last
// parameter of its own, a pointer.
std::string interface_type(const Parameter& parameter);
std::string interface_type(ResultType result);

// "tran_head" of CTranHead.
std::string file_name(std::string_view class_name);
// "TranHeadObject" of CTranHead.
std::string object_name(std::string_view class_name);

}  // namespace tallyra::server::describe
