#pragma once

#include <string_view>

#include "standins/ado/dialect/token.h"

namespace tallyra::standins::ado::dialect {

// The first part of a text that SQLite or its ODBC driver reads otherwise than the tokens say, so that
// something may hide there; empty when there is none. A view into the text.
std::string_view misread_part(const Tokens& tokens);

}  // namespace tallyra::standins::ado::dialect
