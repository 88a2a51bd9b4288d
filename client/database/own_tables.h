#pragma once

#include "client/database/reader.h"

namespace tallyra::client {

// The two tables of the client's own: TALLYRALOCK, of which one row says who is at work, and TALLYRAJOURNAL,
// which says who has done what.
bool has_own_tables(const Reader& reader);
// Makes those of the two that are missing.
void make_own_tables(const Reader& reader);

}  // namespace tallyra::client
