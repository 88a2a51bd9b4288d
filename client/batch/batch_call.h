#pragma once

#include <string>

#include "client/call.h"

namespace tallyra::client {

// A line of a batch: {"class": "CRevAddr", "member": "Insert", "arguments": ["A1", {"ADDRNO": "A1"}]}. An
// object among the arguments is the two collections, names and values; an empty one is to be filled, and Read
// gets it by itself. Texts are as words of the command line, "d:2024/01/31", "t:n:1"; whole numbers are
// 32-bit integers as far as they fit, other numbers doubles; true, false and null are themselves. A line may
// also be {"words": ["CRevAddr", "Read", "A1"]}. Throws UsageError.
Call parse_batch_line(const std::string& line);

}  // namespace tallyra::client
