#pragma once

#include <string>
#include <vector>

#include "client/database/reader.h"

namespace tallyra::client {

// Those of the system's tables that the database has.
std::vector<std::string> tables_there(const Reader& reader);

// The version that the tables have: 0 without a table, 1 for those from before versions were kept.
int schema_version(const Reader& reader);
// The one that this program makes.
int newest_schema_version();

// Creates what is missing of the tables, in one transaction; an SQLite file that is not there is made. Says
// what was done. Throws what the database raises, and std::runtime_error for an engine that it cannot do it
// on and for a database that is newer than this program.
std::string make_tables(const std::string& connection_string);

}  // namespace tallyra::client
