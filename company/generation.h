#pragma once

#include "company/calendar.h"
#include "company/ledger.h"
#include "company/masters.h"
#include "company/random.h"

namespace tallyra::company {

// What purchasing, production and sales share while a company is generated. It refers to all of it.
struct Generation {
  const Masters& masters;
  Random& random;
  Ledger& ledger;
  Database& database;

  const Part& part(int index) const { return masters.parts[static_cast<std::size_t>(index)]; }
};

// The next document to write. Whoever writes it writes at most `max_lines` lines and returns how many it
// wrote: 0 when there is nothing to issue or to take back.
struct Task {
  Day day;
  int month;  // counted from 0, the first month of the company
  int department;
  int max_lines;
};

}  // namespace tallyra::company
