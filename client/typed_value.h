#pragma once

#include <string_view>

#include "automation/value.h"

namespace tallyra::client {

// The value that a word of the command line stands for: text, unless it begins with the mark of a type.
//
//   n:12.5  double           t:n:12  the text "n:12"      null:     Null
//   i:3     32-bit integer   b:true  boolean              empty:    Empty
//   d:2024/01/31 14:05       date, the time is optional   missing:  an argument left out
//
// Throws UsageError when what follows the mark is no value of that type.
automation::Value parse_typed_value(std::string_view word);

}  // namespace tallyra::client
