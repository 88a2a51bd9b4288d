#pragma once

#include <string>

#include "frame/call.h"

namespace tallyra::frame {

// Reading a row: one of the four moves by which most classes maintain one table. A class states its
// statements and where it departs from the pattern; whatever it leaves out is as the pattern has it. Each
// move runs inside run_method and owns what it holds.
struct ReadMove {
  std::string statement;
  // A class either adds to the caller's collections, each field as it is read, or hands new ones back in
  // their place once everything is closed.
  enum class Fill { append, replace } fill = Fill::append;
  // The row count is made known by going to the end and back.
  bool count_rows = true;
};

// Reads the first row into the collections. A missing row is reported and is a success all the same. When
// anything fails, collections that are added to keep what they have got; those that would have been replaced
// are as they were. Of the caller's collections nothing but Add is called.
void read_row(Call& call, const FieldCollections& fields, const ReadMove& move);

}  // namespace tallyra::frame
