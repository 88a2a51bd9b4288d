#include "client/display_width.h"

#include <gtest/gtest.h>

namespace tallyra::client {
namespace {

TEST(DisplayWidth, CountsColumnsNotBytes) {
  const struct {
    const char* text;
    std::size_t width;
  } rows[] = {
      {"", 0},
      {"abc", 3},
      {"äöü", 3},
      {"仓库", 4},
      {"한국", 4},
      {"カナ", 4},
      {"ｶﾅ", 2},
      {"Ａ", 2},
      {"e\u0301", 1},
      {"\u200Bx", 1},
      {"😀", 2},
      {"–…", 2},
      {"𠀀", 2},
      {"A仓1", 4},
      {"\xFFx", 2},
      {"\xE4\xBB", 2},
      {"\xC0\x80", 2},
      {"\xED\xA0\x80", 3},  // half of a surrogate pair is no character
      {"\xF4\x90\x80\x80", 4},
  };
  for (const auto& row : rows) EXPECT_EQ(display_width(row.text), row.width) << row.text;
}

TEST(PrintableLines, CutsAtLineEndsAndDefusesControlCharacters) {
  const struct {
    const char* text;
    std::vector<std::string> lines;
  } rows[] = {
      {"", {""}},
      {"one", {"one"}},
      {"one\ntwo\r\nthree\rfour", {"one", "two", "three", "four"}},
      {"end\n", {"end", ""}},
      {"\x1B[2J\t\x7F", {"\\x1B[2J\\x09\\x7F"}},
      {"\xC2\x9B", {"\\x9B"}},
      {"a\xFFz", {"a\xEF\xBF\xBDz"}},
      {"仓库", {"仓库"}},
  };
  for (const auto& row : rows) EXPECT_EQ(printable_lines(row.text), row.lines) << row.text;
}

TEST(PrintableText, KeepsItsLines) {
  EXPECT_EQ(printable("\none\x1B\n\ntwo\n"), "\none\\x1B\n\ntwo\n");
  EXPECT_EQ(printable(""), "");
}

TEST(IsText, WhatIsUtf8WithoutControlCharacters) {
  for (const char* text : {"", "Grün", "仓库", "two\r\nlines\tand a tab"}) EXPECT_TRUE(is_text(text)) << text;
  for (const char* text : {"gr\xFCn", "\x1B[2J", "\xED\xA0\x80", "\xC2\x9B"})
    EXPECT_FALSE(is_text(text)) << text;
  EXPECT_FALSE(is_text(std::string_view("\0", 1)));
}

TEST(CutToWidth, KeepsWholeCharactersThatFit) {
  EXPECT_EQ(cut_to_width("abc", 5), "abc");
  EXPECT_EQ(cut_to_width("abc", 3), "abc");
  EXPECT_EQ(cut_to_width("abc", 2), "ab");
  EXPECT_EQ(cut_to_width("仓库", 3), "仓");
  EXPECT_EQ(cut_to_width("e\u0301x", 1), "e\u0301");
  EXPECT_EQ(cut_to_width("abc", 0), "");
}

TEST(WrappedText, IsBrokenBetweenWordsAndLosesNothing) {
  EXPECT_EQ(wrapped("wait until the one has ended", 10), "wait until\nthe one\nhas ended");
  EXPECT_EQ(wrapped("see /a/path/without/end now", 10), "see\n/a/path/wi\nthout/end\nnow");
  EXPECT_EQ(wrapped("two\nlines", 5), "two\nlines");
  EXPECT_EQ(wrapped("第二第二 x", 6), "第二第\n二 x");
  EXPECT_EQ(wrapped("", 5), "");
}

}  // namespace
}  // namespace tallyra::client
