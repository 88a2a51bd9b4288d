#pragma once

#include <string>

#include "client/stocktaking/count_sheet.h"

namespace tallyra::client {

class VerbContext;

// Throws UsageError for a number that a stocktaking cannot have.
void require_check_number(const std::string& number);

// Enters a sheet without errors as the stocktaking of that number, line by line through the classes, and
// reads back that all of it is there. When a line fails or Ctrl-C is pressed it deletes what it has entered,
// and throws Refusal that says so; or what is left, when that fails too.
void enter_stocktaking(VerbContext& context, const std::string& number, const CountSheet& sheet);

}  // namespace tallyra::client
