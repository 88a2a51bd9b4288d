#include "standins/ado/dialect/postgresql_misread_text.h"

#include <cstddef>

namespace tallyra::standins::ado::dialect {
namespace {

bool touch(const Tokens& tokens, std::size_t left) {
  return tokens[left].end == tokens[left + 1].begin;
}

// What lies between two tokens, blanks and comments. Block comments nest there, and a line ends with a
// carriage return too. The driver looks for its escape sequences everywhere.
bool is_misread_comment(std::string_view between) {
  const auto block = between.find("/*");
  if (block != std::string_view::npos && between.find("/*", block + 2) != std::string_view::npos) return true;
  const auto line = between.find("--");
  if (line != std::string_view::npos && between.find('\r', line) != std::string_view::npos) return true;
  return between.find('{') != std::string_view::npos;
}

// A text with escapes, E'\'' or U&'\0027', ends elsewhere, or says something else, than it seems.
bool has_escapes(const Tokens& tokens, std::size_t i) {
  if (!touch(tokens, i - 1)) return false;
  const std::string_view before = tokens.text(i - 1);
  switch (tokens[i - 1].kind) {
    case TokenKind::number: return true;  // 1E'\''
    case TokenKind::word:
      return (before == "e" || before == "E") && tokens.text(i).find('\\') != std::string_view::npos;
    case TokenKind::arithmetic:
      return before == "&" && touch(tokens, i - 2) &&
             (tokens.text(i - 2) == "u" || tokens.text(i - 2) == "U");
    default: return false;
  }
}

bool is_misread(const Tokens& tokens, std::size_t i) {
  const std::string_view text = tokens.text(i);
  switch (tokens[i].kind) {
    case TokenKind::word: return text[0] == '$';  // $$a text$$
    case TokenKind::number: return text.find('$') != std::string_view::npos;
    case TokenKind::name: return text[0] == '`' || has_escapes(tokens, i);
    case TokenKind::text:
    case TokenKind::unterminated: return has_escapes(tokens, i);
    case TokenKind::other: return text[0] == '{' || text[0] == '\v';  // to later servers a blank
    default: return false;
  }
}

}  // namespace

std::string_view misread_by_postgresql(const Tokens& tokens) {
  for (std::size_t i = 1; i < tokens.list.size(); ++i) {
    const std::size_t begin = tokens[i - 1].end;
    const std::string_view between = tokens.sql.substr(begin, tokens[i].begin - begin);
    if (!between.empty() && is_misread_comment(between)) return between;
    if (i + 1 < tokens.list.size() && is_misread(tokens, i)) return tokens.text(i);
  }
  return {};
}

}  // namespace tallyra::standins::ado::dialect
