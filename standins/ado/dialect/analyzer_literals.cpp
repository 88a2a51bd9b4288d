// Which date literals stand for a value, and which quoted ones meet a date column.

#include "standins/ado/dialect/analyzer.h"
#include "standins/ado/dialect/date_literal.h"
#include "standins/ado/dialect/keyword.h"

namespace tallyra::standins::ado::dialect {

namespace {

// Words behind which a value may begin.
bool precedes_value(Keyword keyword) {
  switch (keyword) {
    case Keyword::all:
    case Keyword::and_:
    case Keyword::between:
    case Keyword::by:
    case Keyword::case_:
    case Keyword::default_:
    case Keyword::distinct:
    case Keyword::else_:
    case Keyword::having:
    case Keyword::like:
    case Keyword::not_:
    case Keyword::on:
    case Keyword::or_:
    case Keyword::select:
    case Keyword::then:
    case Keyword::when:
    case Keyword::where: return true;
    default: return false;
  }
}

}  // namespace

// A date that is no value is left for the engine to refuse.
void Analyzer::date(std::size_t i) {
  if (is_operand(i)) findings_->dates.push_back(span(i));
}

// Elsewhere the text that a date becomes would be a name, such as the alias of what stands before it, or one
// text with its neighbour.
bool Analyzer::is_operand(std::size_t i) const {
  const Tokens& tokens = *tokens_;
  const Frame& frame = frames_.back();
  const TokenKind after = tokens[i + 1].kind;
  if (after == TokenKind::text || after == TokenKind::date || after == TokenKind::unterminated) return false;
  switch (tokens[i - 1].kind) {
    case TokenKind::arithmetic:
    case TokenKind::comparison:
    case TokenKind::star: return true;
    case TokenKind::comma:
    case TokenKind::open: return !frame.lists_names;
    case TokenKind::word: return precedes_value(tokens[i - 1].keyword);
    default: return frame.top && i == frame.list_begin;
  }
}

void Analyzer::between(std::size_t i) {
  const Tokens& tokens = *tokens_;
  Frame& frame = frames_.back();
  frame.column = column_before(tokens, tokens[i - 1].keyword == Keyword::not_ ? i - 1 : i);
  frame.low = i;
  frame.high = 0;
}

void Analyzer::text(std::size_t i) {
  if (is_inserted(i)) {
    if (insert_.dates[frames_.back().position]) meet_date_column(i);
  } else if (const ColumnRef column = met_column(i)) {
    comparisons_.push_back({i, column, frames_.back().scope});
  }
}

void Analyzer::meet_date_column(std::size_t i) {
  if (read_quoted_date(content(i)))
    findings_->dates.push_back(span(i));
  else if (findings_->no_date.empty())
    findings_->no_date = tokens_->text(i);
}

std::string_view Analyzer::content(std::size_t i) const {
  const std::string_view whole = tokens_->text(i);
  return whole.substr(1, whole.size() - 2);
}

// Whether the literal is a whole value of an INSERT with a column list.
bool Analyzer::is_inserted(std::size_t i) const {
  const Tokens& tokens = *tokens_;
  const Frame& frame = frames_.back();
  const TokenKind before = tokens[i - 1].kind;
  const Token& after = tokens[i + 1];
  if (insert_.end == 0 || frame.position >= insert_.dates.size()) return false;
  if (frame.inside == Inside::values)
    return (before == TokenKind::open || before == TokenKind::comma) &&
           (after.kind == TokenKind::comma || after.kind == TokenKind::close);
  return frame.inside == Inside::statement && frame.in_select_list &&
         (i == frame.list_begin || before == TokenKind::comma) &&
         (after.kind == TokenKind::comma || after.kind == TokenKind::semicolon ||
          after.kind == TokenKind::end ||
          (after.kind == TokenKind::word && after.keyword != Keyword::between &&
           after.keyword != Keyword::in && after.keyword != Keyword::not_));
}

// The column that the literal is compared with or assigned to.
ColumnRef Analyzer::met_column(std::size_t i) const {
  const Tokens& tokens = *tokens_;
  const Frame& frame = frames_.back();
  const TokenKind before = tokens[i - 1].kind;
  const TokenKind after = tokens[i + 1].kind;
  if (binds(tokens, i - 1) || binds(tokens, i + 1)) return {};
  if (before == TokenKind::comparison) return column_before(tokens, i - 1);
  if (after == TokenKind::comparison) return column_after(tokens, i + 1);
  if (frame.inside == Inside::list && (before == TokenKind::open || before == TokenKind::comma) &&
      (after == TokenKind::comma || after == TokenKind::close))
    return frame.column;
  if ((frame.low != 0 && i == frame.low + 1) || (frame.high != 0 && i == frame.high + 1)) return frame.column;
  const std::size_t op = tokens[i + 1].keyword == Keyword::not_ ? i + 2 : i + 1;
  if (tokens[op].keyword == Keyword::between) return column_after(tokens, op);
  if (tokens[op].keyword == Keyword::in && tokens[op + 1].kind == TokenKind::open)
    return column_after(tokens, op + 1);
  return {};
}

void Analyzer::resolve_comparisons() {
  const Tokens& tokens = *tokens_;
  std::size_t asked = 0;  // the column before: the texts of a list all meet the same one
  bool is_date = false;
  for (const Comparison& comparison : comparisons_) {
    const ColumnRef& ref = comparison.column;
    const std::string_view qualifier = ref.qualifier != 0 ? tokens.name(ref.qualifier) : std::string_view();
    if (ref.column != asked)
      is_date = scopes_.is_date(comparison.scope, qualifier, tokens.name(ref.column), columns_);
    asked = ref.column;
    if (is_date) meet_date_column(comparison.literal);
  }
}

}  // namespace tallyra::standins::ado::dialect
