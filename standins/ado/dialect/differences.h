#pragma once

#include <string_view>

#include "standins/ado/dialect/statement_guard.h"
#include "standins/ado/dialect/token.h"

namespace tallyra::standins::ado::dialect {

// In what an engine's words differ from those of the component's statements: all that the dialect must be
// told of an engine.
struct Differences {
  // The column that every table has without declaring it and that tells its rows apart.
  std::string_view row_identity;
  // How far a text reaches that the engine gets.
  Verdict (*judge)(const Tokens& tokens);
};

}  // namespace tallyra::standins::ado::dialect
