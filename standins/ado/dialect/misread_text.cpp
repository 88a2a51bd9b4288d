#include "standins/ado/dialect/misread_text.h"

#include <algorithm>
#include <cstddef>

#include "standins/ado/dialect/characters.h"

namespace tallyra::standins::ado::dialect {
namespace {

constexpr std::string_view byte_order_mark = "\xEF\xBB\xBF";

bool begins_parameter(char c) {
  return c == '$' || c == '@' || c == ':' || c == '#';
}

// The driver takes escape sequences out of a text, {fn now()} for one, wherever it finds a brace outside
// quotes. It knows no quotes but these two: a comment, [a name] or `a name` hides neither brace nor quote
// from it.
std::string_view brace_for_driver(std::string_view sql) {
  for (std::size_t i = 0; i < sql.size(); ++i) {
    if (sql[i] == '{') return sql.substr(i, 1);
    if (sql[i] != '\'' && sql[i] != '"') continue;
    // A doubled quote within quotes is the end of one text and the beginning of the next here.
    i = sql.find(sql[i], i + 1);
    if (i == std::string_view::npos) break;
  }
  return {};
}

// To SQLite everything in the parentheses directly behind a named parameter belongs to its name, quotes too.
// Asked about token after token.
class ParameterReader {
 public:
  explicit ParameterReader(std::string_view sql) : sql_(sql) {}

  std::string_view with_parentheses(const Token& token) {
    for (std::size_t i = std::max<std::size_t>(token.begin, read_); i < token.end; ++i) {
      if (!begins_parameter(sql_[i])) continue;
      read_ = i + 1;
      while (read_ < sql_.size() && (is_name_byte(sql_[read_]) || sql_[read_] == ':')) ++read_;
      if (read_ < sql_.size() && sql_[read_] == '(') return sql_.substr(i, read_ - i + 1);
      i = read_ - 1;
    }
    return {};
  }

 private:
  std::string_view sql_;
  std::size_t read_ = 0;  // up to here
};

// SQLite takes a byte order mark for a blank, and a vertical tab that follows a blank.
bool is_odd_blank(std::string_view token) {
  return token.starts_with(byte_order_mark) || token == "\v";
}

}  // namespace

std::string_view misread_part(const Tokens& tokens) {
  if (const auto brace = brace_for_driver(tokens.sql); !brace.empty()) return brace;
  ParameterReader parameters(tokens.sql);
  for (std::size_t i = 1; i + 1 < tokens.list.size(); ++i) {
    const Token& token = tokens[i];
    if (token.kind != TokenKind::word && token.kind != TokenKind::number && token.kind != TokenKind::other)
      continue;
    if (is_odd_blank(tokens.text(i))) return tokens.text(i);
    if (const auto parameter = parameters.with_parentheses(token); !parameter.empty()) return parameter;
  }
  return {};
}

}  // namespace tallyra::standins::ado::dialect
