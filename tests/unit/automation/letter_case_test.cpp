#include "automation/letter_case.h"

#include <gtest/gtest.h>

namespace tallyra::automation {
namespace {

TEST(LetterCase, CapitalsOfEachAlphabetBecomeSmall) {
  EXPECT_EQ(small_letters("ABCXYZ abcxyz 019 @[`{"), "abcxyz abcxyz 019 @[`{");
  EXPECT_EQ(small_letters("ÀÖØÞ àöøþ"), "àöøþ àöøþ");
  EXPECT_EQ(small_letters("ĀĮĲĶĹŇŊŶŸŹŽ"), "āįĳķĺňŋŷÿźž");
  EXPECT_EQ(small_letters("ḀẔẠỾ"), "ḁẕạỿ");
  EXPECT_EQ(small_letters("ΆΈΉΊΌΎΏΑΡΣΫ"), "άέήίόύώαρσϋ");
  EXPECT_EQ(small_letters("ЀЏАЯѠҀҊҾӁӍӐԮ"), "ѐџаяѡҁҋҿӂӎӑԯ");
  EXPECT_EQ(small_letters("ԱՖ"), "աֆ");
  EXPECT_EQ(small_letters("ＡＺ"), "ａｚ");
}

TEST(LetterCase, EverythingElseStays) {
  for (const char* text : {"", "÷×ßİıĸŉſ", "文字列 ひらがな", "😀", "1.5 #&_-", "\xC3\x97"})
    EXPECT_EQ(small_letters(text), text);
  const std::string with_null("A\0B", 3);
  EXPECT_EQ(small_letters(with_null), std::string("a\0b", 3));
}

TEST(LetterCase, BytesThatAreNoUtf8Stay) {
  EXPECT_EQ(small_letters("\xC3"), "\xC3");
  EXPECT_EQ(small_letters("\xC3"
                          "A"),
            "\xC3"
            "a");
  EXPECT_EQ(small_letters("\xEF\xBC"), "\xEF\xBC");
  EXPECT_EQ(small_letters("\x80\xBF\xFF\xC0\xC1"), "\x80\xBF\xFF\xC0\xC1");
}

}  // namespace
}  // namespace tallyra::automation
