#pragma once

#include <string>
#include <vector>

#include "tests/support/company_database.h"

namespace tallyra::behaviour {

// A way in which a process can keep others from writing until it commits a change.
struct Hold {
  const char* name;
  std::vector<std::string> statements;  // up to the commit
};

// On SQLite the file. On PostgreSQL the rows that are changed, which others can read meanwhile, and whole
// tables, which they cannot even read. The company needs a table OTHERS, in which each change adds a row.
std::vector<Hold> holds_on(const CompanyDatabase& company);
// A connection string for it, with a short wait for locks that others have.
std::string impatient(const CompanyDatabase& company);

// The change itself, without that row: to records of `give_records` and to all documents, in columns that no
// writing method sets and no query of `WritingMethod::stored` takes from a document.
const std::vector<std::string>& change_of_others();

}  // namespace tallyra::behaviour
