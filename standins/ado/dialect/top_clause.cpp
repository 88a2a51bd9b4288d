#include "standins/ado/dialect/top_clause.h"

namespace tallyra::standins::ado::dialect {
namespace {

bool is_count(const Tokens& tokens, std::size_t i) {
  return tokens[i].kind == TokenKind::number &&
         tokens.text(i).find_first_not_of("0123456789") == std::string_view::npos;
}

// Words of SQL that can also be a column, a function, or begin an expression.
bool begins_expression(const Tokens& tokens, std::size_t i) {
  switch (tokens[i].keyword) {
    case Keyword::none:
    case Keyword::by:
    case Keyword::case_:
    case Keyword::cross:
    case Keyword::end:
    case Keyword::full:
    case Keyword::inner:
    case Keyword::left:
    case Keyword::natural:
    case Keyword::not_:
    case Keyword::offset:
    case Keyword::outer:
    case Keyword::right:
    case Keyword::ties:
    case Keyword::top:
    case Keyword::window: return true;
    case Keyword::with: return tokens[i + 1].keyword != Keyword::ties;
    default: return false;
  }
}

// A select list must follow; what cannot begin one shows that top was a name or a function, or that the
// statement is malformed and must stay so.
bool begins_select_list(const Tokens& tokens, std::size_t i) {
  switch (tokens[i].kind) {
    case TokenKind::word: return begins_expression(tokens, i);
    case TokenKind::comparison:
    case TokenKind::close:
    case TokenKind::comma:
    case TokenKind::dot:
    case TokenKind::semicolon:
    case TokenKind::unterminated:
    case TokenKind::end: return false;
    default: return true;
  }
}

}  // namespace

std::optional<TopClause> read_top(const Tokens& tokens, std::size_t select) {
  std::size_t i = select + 1;
  const Keyword quantifier = tokens[i].keyword;
  if (quantifier == Keyword::all || quantifier == Keyword::distinct || quantifier == Keyword::distinctrow)
    ++i;
  if (tokens[i].keyword != Keyword::top) return std::nullopt;
  TopClause top{.first = i, .last = i + 1, .count = i + 1};
  if (tokens[i + 1].kind == TokenKind::open) {
    top.count = i + 2;
    if (!is_count(tokens, top.count) || tokens[i + 3].kind != TokenKind::close) return std::nullopt;
    top.last = i + 3;
  } else if (!is_count(tokens, top.count)) {
    return std::nullopt;
  }
  if (!begins_select_list(tokens, top.last + 1)) return std::nullopt;
  return top;
}

}  // namespace tallyra::standins::ado::dialect
