#pragma once

#include <cstdint>
#include <string_view>

#include "standins/ado/dialect/token.h"

namespace tallyra::standins::ado::dialect {

enum class Reach : std::uint8_t {
  database,  // stays within the connected database
  beyond,    // can get at native code, at files or at other databases
  several,   // is more than one statement
};

struct Verdict {
  Reach reach = Reach::database;
  std::string_view cause;  // the part of the text that decided; a view into it, empty for `database`
};

// How far a text would reach if SQLite's ODBC driver got it. Clients' keys stand in statements as they are,
// so who gives a key says what the statement does. What the driver and the engine would read as another text
// than this layer does counts as `beyond`. A text that makes no sense may be `database`: the engine refuses
// it. Needs time linear in the length of the text.
Verdict judge(const Tokens& tokens);

// Whether a function or table of this name would get at code or files, for an engine that can ask by itself.
bool is_reaching_name(std::string_view name);
bool is_harmless_pragma(std::string_view name);

}  // namespace tallyra::standins::ado::dialect
