#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "standins/ado/connection_string.h"

namespace tallyra::standins::ado {

// The options that a text for PostgreSQL's library holds, `keyword=value keyword='a value'`, as far as it
// makes sense; a text that makes none somewhere the library refuses as a whole.
std::vector<Keyword> read_library_options(std::string_view text);

// Whether the option is one that is not taken: unknown, or it makes this process or the server load code.
bool is_refused_option(std::string_view keyword, std::string_view value);

}  // namespace tallyra::standins::ado
