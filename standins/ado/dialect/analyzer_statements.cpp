// How a statement begins and what remains to be decided when it ends.

#include "standins/ado/dialect/analyzer.h"
#include "standins/ado/dialect/keyword.h"

namespace tallyra::standins::ado::dialect {

std::size_t Analyzer::begin_statement(std::size_t first) {
  scopes_.clear();
  comparisons_.clear();
  insert_.end = 0;
  findings_->values_begin = 0;
  delete_target_ = 0;
  balanced_ = true;
  outermost_ = scopes_.open(Scopes::none);
  frames_.assign(1, {.scope = outermost_});
  switch ((*tokens_)[first].keyword) {
    case Keyword::delete_: return begin_delete(first);
    case Keyword::insert: return begin_insert(first);
    case Keyword::update: frames_.back().in_from = frames_.back().expects_table = true; return first + 1;
    case Keyword::alter:
    case Keyword::create:
    case Keyword::drop: findings_->changes_schema = frames_.back().declares = true; return first + 1;
    default:
      if (same_name(tokens_->text(first), "rollback")) findings_->changes_schema = true;
      return first;
  }
}

std::size_t Analyzer::begin_delete(std::size_t first) {
  const Tokens& tokens = *tokens_;
  std::size_t i = first + 1;
  if (tokens[i].kind == TokenKind::star && tokens[i + 1].keyword == Keyword::from) {
    findings_->delete_lists.push_back(span(i));
    return i + 1;
  }
  if (!tokens.is_name(i)) return i;
  const bool starred = tokens[i + 1].kind == TokenKind::dot && tokens[i + 2].kind == TokenKind::star;
  if (tokens[i + (starred ? 3 : 1)].keyword != Keyword::from) return i;
  delete_target_ = i;
  return i + (starred ? 3 : 1);
}

std::size_t Analyzer::begin_insert(std::size_t first) {
  const Tokens& tokens = *tokens_;
  read_insert(tokens, first, columns_, insert_);
  const std::size_t i = insert_.end;
  if (i == 0) return first + 1;
  if (first == 1 && tokens[i].keyword == Keyword::values && tokens[i + 1].kind == TokenKind::open)
    findings_->values_begin = tokens[i + 1].end;
  return i;
}

void Analyzer::end_statement(std::size_t end) {
  if (frames_.size() > 1) balanced_ = false;
  while (!frames_.empty()) {
    end_select(end, false);
    frames_.pop_back();
  }
  resolve_comparisons();
  resolve_delete(end);
}

// A target that the FROM clause does not expose is left to the engine to refuse, and so is a statement whose
// parentheses do not match: wrapped into a subquery it might mean something else and delete too much.
void Analyzer::resolve_delete(std::size_t end) {
  const Tokens& tokens = *tokens_;
  if (delete_target_ == 0 || !balanced_) return;
  const Scopes::Table* table = scopes_.target(outermost_, tokens.name(delete_target_));
  if (table == nullptr) return;
  const std::size_t last =
      tokens[delete_target_ + 1].kind == TokenKind::dot ? delete_target_ + 2 : delete_target_;
  const Span target{tokens[delete_target_].begin, tokens[last].end};
  if (scopes_.single(outermost_) && same_name(table->name, table->exposed))
    findings_->delete_lists.push_back(target);
  else
    findings_->deletes.push_back({target, tokens.text(delete_target_), table->written, end_before(end)});
}

}  // namespace tallyra::standins::ado::dialect
