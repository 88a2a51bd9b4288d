#pragma once

#include "company/ado_connection.h"
#include "company/database_place.h"

namespace tallyra::company {

// Both throw Refusal, so that nothing is left behind unsaid when a database is copied.

// For an SQLite file that is not there, which opening would make, and for one that would be copied into
// itself.
void check_files(const DatabasePlace& source, const DatabasePlace& target);

// For a database that is not SQLite's, is newer than this program, or whose tables and columns are not
// exactly those of the description.
void check_source(const AdoConnection& source);

}  // namespace tallyra::company
