#include "standins/ado/dialect/column_ref.h"

namespace tallyra::standins::ado::dialect {
namespace {

bool keeps_dates(const Tokens& tokens, std::size_t i) {
  return same_name(tokens.text(i), "MAX") || same_name(tokens.text(i), "MIN");
}

}  // namespace

bool binds(const Tokens& tokens, std::size_t i) {
  return tokens[i].kind == TokenKind::arithmetic || tokens[i].kind == TokenKind::star;
}

// The end tokens stop every loop: they are neither name, dot nor parenthesis.

ColumnRef column_before(const Tokens& tokens, std::size_t op) {
  std::size_t i = op - 1;
  std::size_t closed = 0;
  for (; tokens[i].kind == TokenKind::close; --i) ++closed;
  if (!tokens.is_name(i)) return {};
  ColumnRef ref{.column = i};
  if (tokens[i - 1].kind == TokenKind::dot && tokens.is_name(i - 2)) ref.qualifier = i - 2;
  while (tokens[i - 1].kind == TokenKind::dot && tokens.is_name(i - 2)) i -= 2;
  std::size_t before = i - 1;
  const bool parenthesised = closed != 0;
  for (; closed != 0; --closed, --before)
    if (tokens[before].kind != TokenKind::open) return {};
  if (parenthesised && tokens.is_name(before)) {
    if (!keeps_dates(tokens, before)) return {};
    --before;
  }
  if (binds(tokens, before) || tokens[before].kind == TokenKind::dot) return {};
  return ref;
}

ColumnRef column_after(const Tokens& tokens, std::size_t op) {
  std::size_t i = op + 1;
  std::size_t opened = 0;
  for (; tokens[i].kind == TokenKind::open; ++i) ++opened;
  if (!tokens.is_name(i)) return {};
  if (tokens[i + 1].kind == TokenKind::open && keeps_dates(tokens, i)) {
    i += 2;
    ++opened;
    if (!tokens.is_name(i)) return {};
  }
  ColumnRef ref{.column = i};
  while (tokens[i + 1].kind == TokenKind::dot && tokens.is_name(i + 2)) {
    ref = {.column = i + 2, .qualifier = i};
    i += 2;
  }
  ++i;
  for (; opened != 0; --opened, ++i)
    if (tokens[i].kind != TokenKind::close) return {};
  if (binds(tokens, i) || tokens[i].kind == TokenKind::open || tokens[i].kind == TokenKind::dot) return {};
  return ref;
}

}  // namespace tallyra::standins::ado::dialect
