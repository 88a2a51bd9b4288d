#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "automation/value.h"

namespace tallyra::client {

// A column and its value, one entry of the pair of collections in which records travel.
struct Field {
  std::string name;
  automation::Value value;
};

// A call as the command line states it.
struct Call {
  std::string prog_id;
  std::string member;
  // Every argument except the two collections.
  std::vector<automation::Value> arguments;
  // How many of the arguments precede the two collections; nothing when the call has no collections.
  std::optional<std::size_t> collections_after;
  // What the collections hold when the call is made.
  std::vector<Field> fields;
};

// Reads class, member and arguments. A class without a point in its name is one of Tallyra's. The run of
// COLUMN=value words becomes the two collections at its place, the word @ two empty ones; Read gets empty
// ones as its last arguments when it has been given neither. Throws UsageError.
Call parse_call(const std::vector<std::string>& words);

}  // namespace tallyra::client
