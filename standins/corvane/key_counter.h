#pragma once

#include <cstdint>
#include <string>

#include "standins/corvane/document_number.h"

namespace tallyra::standins::corvane {

// Where the counters of a database's document numbers are kept. SQLite locks whole files, and a number must
// be issuable while the caller holds a write transaction on the database: there, a file of its own,
// "<database>.keys". Elsewhere the table TABLEKEYS of the database itself, which then locks by row.
std::string key_database(const std::string& connection_string);

// The connection string with a bound on how long to wait for another's lock, unless it gives one itself.
std::string with_bounded_wait(const std::string& connection_string);

// Takes the next counter of the series, which is above `floor` and above every counter taken before, by
// whatever process. `key_connection_string` names the key database; the table is created at its first use.
// Throws Error series_exhausted, or what the database raises; then no counter has been taken.
std::int32_t take_next_counter(const std::string& key_connection_string, const Series& series,
                               std::int32_t floor);

}  // namespace tallyra::standins::corvane
