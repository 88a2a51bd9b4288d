#pragma once

#include <string_view>

#include "standins/ado/dialect/token.h"

namespace tallyra::standins::ado::dialect {

// The first part of a text that PostgreSQL or its ODBC driver reads otherwise than the tokens say, so that
// something may hide there; empty when there is none. A view into the text.
std::string_view misread_by_postgresql(const Tokens& tokens);

}  // namespace tallyra::standins::ado::dialect
