#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "automation/error.h"
#include "client/database/reader.h"

namespace tallyra::client {

// "error NUMBER: TEXT" in one line, whatever line ends and tabs the driver has put into its text.
std::string error_text(const automation::Error& error);

// What to do about an error whose cause lies beside the database, which itself is well: another one holds a
// lock, or rights on the file or the table are lacking. Nothing for any other error. Of error texts, what the
// engines say in English is known.
std::optional<std::string> advice_against(std::string_view error);

// Why the database cannot be looked into.
struct Trouble {
  std::string error;
  std::string advice;
};

// SQLite opens any file and looks into it with the first statement: nothing when that finds a database, also
// on every other engine. `advice` is for a file that is none.
std::optional<Trouble> trouble_with(const Reader& reader, const std::string& advice);

}  // namespace tallyra::client
