#include "standins/ado/dialect/tokenizer.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace tallyra::tests::dialect {
namespace {

using standins::ado::dialect::TokenKind;
using standins::ado::dialect::Tokens;

// The tokens joined by |, each behind a letter for its kind.
std::string cut(std::string_view sql) {
  constexpr std::string_view letters = "wntdNcas(),.;o!";
  Tokens tokens;
  standins::ado::dialect::tokenize(sql, tokens);
  std::string joined;
  for (std::size_t i = 1; i + 1 < tokens.list.size(); ++i) {
    if (!joined.empty()) joined += '|';
    joined += letters[static_cast<std::size_t>(tokens[i].kind)];
    joined += ' ';
    joined += tokens.text(i);
  }
  EXPECT_EQ(tokens[0].kind, TokenKind::end);
  EXPECT_EQ(tokens.list.back().kind, TokenKind::end);
  return joined;
}

TEST(Tokenizer, CutsATextIntoItsTokens) {
  struct Row {
    std::string_view sql;
    std::string_view tokens;
  };
  for (const Row& row : {
           Row{"", ""},
           {"Select top 1 *", "w Select|w top|N 1|s *"},
           {"A.B='x'", "w A|. .|w B|c =|t 'x'"},
           {"'it''s' ''", "t 'it''s'|t ''"},
           {"'a--b' '/*' '#'", "t 'a--b'|t '/*'|t '#'"},
           {"[a b] \"c\"\"d\" `e'f`", "n [a b]|n \"c\"\"d\"|n `e'f`"},
           {"#2024/03/31#", "d #2024/03/31#"},
           {"#x#2024/03/31#", "o #|w x|d #2024/03/31#"},
           {"#14:05#", "o #|N 14|o :|N 05|o #"},
           {"a<=b<>c>=d!=e==f<g>h", "w a|c <=|w b|c <>|w c|c >=|w d|c !=|w e|c ==|w f|c <|w g|c >|w h"},
           {"a<<b>>c||d|e", "w a|a <<|w b|a >>|w c|a |||w d|a ||w e"},
           {"1.5e-7+.5-0x1e-7", "N 1.5e-7|a +|N .5|a -|N 0x1e|a -|N 7"},
           {"a-- b\nc--d", "w a|w c"},
           {"a/* b ' */c/*d", "w a|w c"},
           {"a-b/c", "w a|a -|w b|a /|w c"},
           {"(a);b", "( (|w a|) )|; ;|w b"},
           {"x='open", "w x|c =|! 'open"},
           {"x='it''", "w x|c =|! 'it''"},
           {"[open", "! [open"},
           {"? @p :q !", "o ?|o @|w p|o :|w q|o !"},
           {"\xE5\xAD\x97=\xC3\xA9", "w \xE5\xAD\x97|c =|w \xC3\xA9"},
       })
    EXPECT_EQ(cut(row.sql), row.tokens) << row.sql;
}

TEST(Tokenizer, KnowsKeywordsInAnyCaseButNotBehindADot) {
  using standins::ado::dialect::Keyword;
  Tokens tokens;
  standins::ado::dialect::tokenize("sElEcT T.select selects [select]", tokens);
  EXPECT_EQ(tokens[1].keyword, Keyword::select);
  EXPECT_EQ(tokens[4].keyword, Keyword::none);
  EXPECT_EQ(tokens[5].keyword, Keyword::none);
  EXPECT_EQ(tokens[6].keyword, Keyword::none);
  for (const std::string_view word : {"all", "WITH", "Union", "and", "Distinctrow", "WINDOW"})
    EXPECT_NE(standins::ado::dialect::keyword_of(word), Keyword::none) << word;
  for (const std::string_view word : {"", "a", "zebra", "TRANDT", "al", "withx", "\xC3\xA9"})
    EXPECT_EQ(standins::ado::dialect::keyword_of(word), Keyword::none) << word;
}

}  // namespace
}  // namespace tallyra::tests::dialect
