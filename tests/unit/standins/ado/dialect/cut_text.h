#pragma once

#include <string_view>

#include "standins/ado/dialect/tokenizer.h"

namespace tallyra::tests::dialect {

// The tokens of a text, which must outlive them.
inline standins::ado::dialect::Tokens cut(std::string_view sql) {
  standins::ado::dialect::Tokens tokens;
  standins::ado::dialect::tokenize(sql, tokens);
  return tokens;
}

// The first token of that text.
inline std::size_t token_at(const standins::ado::dialect::Tokens& tokens, std::string_view text) {
  std::size_t i = 1;
  while (i + 1 < tokens.list.size() && tokens.text(i) != text) ++i;
  return i;
}

}  // namespace tallyra::tests::dialect
