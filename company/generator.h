#pragma once

#include <string>
#include <vector>

#include "company/movements.h"
#include "company/options.h"

namespace tallyra::company {

struct TableCount {
  std::string table;
  std::string rows;
};

// Creates the database file and fills it; returns the rows of each table. Works beside the file and puts it
// in place at the end, so that neither a failure nor an interruption leaves a half-filled database, and a
// database that is replaced stays as it was until then. Throws Refusal for options out of range, an
// unreadable script and an existing database without `replace`; DatabaseError for what the driver reports.
std::vector<TableCount> generate(const Options& options, const Progress& progress);

}  // namespace tallyra::company
