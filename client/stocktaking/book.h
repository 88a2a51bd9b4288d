#pragma once

#include <string>
#include <vector>

#include "client/database/reader.h"

namespace tallyra::client {

// What a count of a part in a department on a day is held against.
struct BookLine {
  std::string part;  // as the part master spells it
  std::string name;
  std::string unit;
  bool moved = false;  // it has lines in the period, whatever they sum up to
  double book = 0;
};

// Every part of the master, by number, with the quantity that an approval computes: what moved out of the
// department after the last close up to the day, and what was transferred in, each of the two counted as
// nothing when it is below zero. An earlier posting of the same day is a part of it.
std::vector<BookLine> book_of(const Reader& reader, const std::string& department, automation::Date day);

}  // namespace tallyra::client
