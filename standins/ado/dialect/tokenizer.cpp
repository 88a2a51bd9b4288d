#include "standins/ado/dialect/tokenizer.h"

#include <cstddef>

#include "standins/ado/dialect/characters.h"
#include "standins/ado/dialect/date_literal.h"

namespace tallyra::standins::ado::dialect {
namespace {

std::size_t behind(std::size_t found, std::size_t length, std::string_view sql) {
  return found == std::string_view::npos ? sql.size() : found + length;
}

struct Scan {
  std::size_t end;
  TokenKind kind;
};

class Cursor {
 public:
  explicit Cursor(std::string_view sql) : sql_(sql) {}

  Scan scan(std::size_t at) const {
    const char c = sql_[at];
    switch (c) {
      case '\'': return quoted(at, '\'', TokenKind::text);
      case '"': return quoted(at, '"', TokenKind::name);
      case '`': return quoted(at, '`', TokenKind::name);
      case '[': return bracketed(at);
      case '#': return hash(at);
      case '(': return {at + 1, TokenKind::open};
      case ')': return {at + 1, TokenKind::close};
      case ',': return {at + 1, TokenKind::comma};
      case ';': return {at + 1, TokenKind::semicolon};
      case '*': return {at + 1, TokenKind::star};
      case '=': return {at + (peek(at + 1) == '=' ? 2 : 1), TokenKind::comparison};
      case '<':
      case '>': return angle(at, c);
      case '!':
        if (peek(at + 1) == '=') return {at + 2, TokenKind::comparison};
        return {at + 1, TokenKind::other};
      case '|': return {at + (peek(at + 1) == '|' ? 2 : 1), TokenKind::arithmetic};
      case '+':
      case '-':
      case '/':
      case '%':
      case '&':
      case '~': return {at + 1, TokenKind::arithmetic};
      case '.':
        if (is_digit(peek(at + 1))) return number(at);
        return {at + 1, TokenKind::dot};
      default: break;
    }
    if (is_digit(c)) return number(at);
    return is_name_byte(c) ? word(at) : Scan{at + 1, TokenKind::other};
  }

 private:
  char peek(std::size_t at) const { return at < sql_.size() ? sql_[at] : '\0'; }

  Scan quoted(std::size_t at, char quote, TokenKind kind) const {
    for (std::size_t from = at + 1;;) {
      const std::size_t found = sql_.find(quote, from);
      if (found == std::string_view::npos) return {sql_.size(), TokenKind::unterminated};
      if (peek(found + 1) != quote) return {found + 1, kind};
      from = found + 2;
    }
  }

  Scan bracketed(std::size_t at) const {
    const std::size_t found = sql_.find(']', at + 1);
    if (found == std::string_view::npos) return {sql_.size(), TokenKind::unterminated};
    return {found + 1, TokenKind::name};
  }

  Scan hash(std::size_t at) const {
    const std::size_t length = hash_date_length(sql_.substr(at));
    return length != 0 ? Scan{at + length, TokenKind::date} : Scan{at + 1, TokenKind::other};
  }

  Scan angle(std::size_t at, char c) const {
    const char next = peek(at + 1);
    if (next == '=' || (c == '<' && next == '>')) return {at + 2, TokenKind::comparison};
    if (next == c) return {at + 2, TokenKind::arithmetic};
    return {at + 1, TokenKind::comparison};
  }

  // 1.5e-7 is one number, 0x1e-7 a difference.
  Scan number(std::size_t at) const {
    const bool hexadecimal = sql_[at] == '0' && (peek(at + 1) == 'x' || peek(at + 1) == 'X');
    while (at < sql_.size()) {
      const char c = sql_[at];
      if (!is_name_byte(c) && c != '.') break;
      ++at;
      const bool exponent = !hexadecimal && (c == 'e' || c == 'E');
      if (exponent && (peek(at) == '+' || peek(at) == '-') && is_digit(peek(at + 1))) ++at;
    }
    return {at, TokenKind::number};
  }

  Scan word(std::size_t at) const {
    while (at < sql_.size() && is_name_byte(sql_[at])) ++at;
    return {at, TokenKind::word};
  }

  std::string_view sql_;
};

}  // namespace

std::size_t skip_between_tokens(std::string_view sql, std::size_t at) {
  const auto follows = [&](char c) { return at + 1 < sql.size() && sql[at + 1] == c; };
  while (at < sql.size()) {
    if (is_blank(sql[at])) {
      ++at;
    } else if (sql[at] == '-' && follows('-')) {
      at = behind(sql.find('\n', at + 2), 1, sql);
    } else if (sql[at] == '/' && follows('*')) {
      at = behind(sql.find("*/", at + 2), 2, sql);
    } else {
      break;
    }
  }
  return at;
}

void tokenize(std::string_view sql, Tokens& tokens) {
  tokens.sql = sql;
  tokens.list.clear();
  tokens.list.push_back({0, 0, TokenKind::end});
  const Cursor cursor(sql);
  std::size_t at = skip_between_tokens(sql, 0);
  while (at < sql.size()) {
    const Scan scan = cursor.scan(at);
    Token token{static_cast<std::uint32_t>(at), static_cast<std::uint32_t>(scan.end), scan.kind};
    if (scan.kind == TokenKind::word && tokens.list.back().kind != TokenKind::dot)
      token.keyword = keyword_of(sql.substr(at, scan.end - at));
    tokens.list.push_back(token);
    at = skip_between_tokens(sql, scan.end);
  }
  const auto size = static_cast<std::uint32_t>(sql.size());
  tokens.list.push_back({size, size, TokenKind::end});
}

}  // namespace tallyra::standins::ado::dialect
