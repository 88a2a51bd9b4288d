#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "standins/ado/dialect/findings.h"
#include "standins/ado/dialect/statement_guard.h"
#include "standins/ado/dialect/token.h"

namespace tallyra::standins::ado::dialect {

// A part of a text and what stands in its place for the engine.
struct Rewording {
  Span span;
  std::string text;
};

// In what an engine's words differ from those of the component's statements: all that the dialect must be
// told of an engine.
struct Differences {
  // The column that every table has without declaring it and that tells its rows apart.
  std::string_view row_identity;
  // How far a text reaches that the engine gets.
  Verdict (*judge)(const Tokens& tokens);
  // A row is one of those that a query identifies: what stands around the query.
  std::string_view rows_begin = " IN (";
  std::string_view rows_end = ")";
  // What makes a query with a limit a member of a compound, with a closing parenthesis behind it.
  std::string_view member_begin = "SELECT * FROM (";
  // What else the engine has another word for: appended in the order of the text, without overlap. Null when
  // there is nothing.
  void (*reword)(const Tokens& tokens, std::vector<Rewording>& rewordings) = nullptr;
};

}  // namespace tallyra::standins::ado::dialect
