#include "client/report/words.h"

#include <gtest/gtest.h>

namespace tallyra::client {
namespace {

TEST(ReportWords, AreInTheLanguageOfTheSession) {
  for (const char* code : {"DE", "de-AT", "German", " deutsch "})
    EXPECT_EQ(words_for(code).code, "de") << code;
  for (const char* code : {"zh", "zh_TW", "CHS", "GB2312"}) EXPECT_EQ(words_for(code).code, "zh-CN") << code;
  for (const char* code : {"", "EN", "en-US", "FR", "denmark"}) EXPECT_EQ(words_for(code).code, "en") << code;
}

}  // namespace
}  // namespace tallyra::client
