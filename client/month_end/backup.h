#pragma once

#include <string>

#include "client/database/reader.h"

namespace tallyra::client {

struct Backup {
  std::string file;
  std::size_t tables = 0;
  std::int64_t rows = 0;
};

// Copies the database into a file beside it, named after what is about to be done, and the numbers that were
// issued with it; nobody writes meanwhile. Opens the copy and compares it with the database, table by table.
// Throws Refusal for an engine whose databases are no files, with how to back one up, and for a copy that is
// not equal.
Backup back_up(const Reader& reader, const std::string& before_what);

}  // namespace tallyra::client
