#pragma once

#include <string>

#include "client/database/reader.h"

namespace tallyra::client {

struct Backup {
  std::string file;
  std::size_t tables = 0;
  std::int64_t rows = 0;
  std::size_t removed = 0;  // files of copies that killed processes have not finished
};

// Copies the database into a file beside it, named after what is about to be done, and the numbers that were
// issued with it; nobody writes meanwhile. Opens the copy and compares it with the database, table by table.
// Until then its name ends with ".unfinished"; the first Ctrl-C or TERM ends the copying, which leaves
// nothing then. The caller holds the lock: what others have left unfinished is removed. Throws Refusal for an
// engine whose databases are no files, with how to back one up, for a copy that is not equal, and for an
// interruption.
Backup back_up(const Reader& reader, const std::string& before_what);

}  // namespace tallyra::client
