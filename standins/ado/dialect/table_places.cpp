#include "standins/ado/dialect/table_places.h"

#include "standins/ado/dialect/keyword.h"

namespace tallyra::standins::ado::dialect {

bool TablePlaces::names_table(std::size_t i) {
  follow(i);
  const Token& before = tokens_[i - 1];
  return before.kind == TokenKind::dot || before.keyword == Keyword::in || before.keyword == Keyword::into ||
         before.keyword == Keyword::update || begins_source(i) || tokens_[i + 1].kind == TokenKind::open;
}

// Whether a table, or a parenthesis with tables, begins at token `i`.
bool TablePlaces::begins_source(std::size_t i) const {
  const Token& before = tokens_[i - 1];
  if (before.kind == TokenKind::comma || before.kind == TokenKind::open) return lists_sources_.back();
  if (before.keyword == Keyword::from) return tokens_[i - 2].keyword != Keyword::distinct;
  return before.keyword == Keyword::join;
}

// Ends a list of tables only at words that SQLite never takes for names: behind an alias such as window the
// list goes on.
void TablePlaces::follow(std::size_t i) {
  switch (tokens_[i].kind) {
    case TokenKind::open: lists_sources_.push_back(begins_source(i)); return;
    case TokenKind::close:
      if (lists_sources_.size() > 1) lists_sources_.pop_back();
      return;
    case TokenKind::semicolon: lists_sources_.assign(1, false); return;
    default: break;
  }
  switch (tokens_[i].keyword) {
    case Keyword::from:
      if (tokens_[i - 1].keyword != Keyword::distinct) lists_sources_.back() = true;
      return;
    case Keyword::group:
    case Keyword::having:
    case Keyword::limit:
    case Keyword::order:
    case Keyword::select:
    case Keyword::set:
    case Keyword::values:
    case Keyword::where: lists_sources_.back() = false; return;
    default: return;
  }
}

}  // namespace tallyra::standins::ado::dialect
