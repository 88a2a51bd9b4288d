#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "standins/ado/dialect/keyword.h"

namespace tallyra::standins::ado::dialect {

enum class TokenKind : std::uint8_t {
  word,          // keyword or plain name
  name,          // [name], "name" or `name`
  text,          // 'text'
  date,          // #2024/03/31#, only when what is inside is a valid date
  number,        // 12, 1.5, 1e-7
  comparison,    // = <> != < > <= >= ==
  arithmetic,    // + - / % & | || << >> ~
  star,          // *
  open,          // (
  close,         // )
  comma,         // ,
  dot,           // .
  semicolon,     // ;
  other,         // any other single byte
  unterminated,  // a quote or bracket that is never closed, up to the end of the text
  end,           // before the first and after the last token
};

struct Token {
  std::uint32_t begin;  // byte offsets into the text, delimiters included
  std::uint32_t end;
  TokenKind kind;
  Keyword keyword = Keyword::none;  // `none` after a dot, where every word is a name
};

// A text cut into tokens; blanks and comments lie between them. The first and the last element are of kind
// `end`, so that the neighbours of every real token may be looked at. Views are into the text the list was
// made from.
struct Tokens {
  std::string_view sql;
  std::vector<Token> list;

  const Token& operator[](std::size_t i) const { return list[i]; }
  std::string_view text(std::size_t i) const {
    return sql.substr(list[i].begin, list[i].end - list[i].begin);
  }

  bool is_name(std::size_t i) const {
    return list[i].kind == TokenKind::name ||
           (list[i].kind == TokenKind::word && list[i].keyword == Keyword::none);
  }

  // What stands inside the delimiters; a plain word has none.
  std::string_view name(std::size_t i) const {
    const std::string_view whole = text(i);
    const bool delimited = list[i].kind == TokenKind::name || list[i].kind == TokenKind::text;
    return delimited ? whole.substr(1, whole.size() - 2) : whole;
  }
};

}  // namespace tallyra::standins::ado::dialect
