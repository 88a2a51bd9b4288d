#include "standins/lexbank/language.h"

#include <gtest/gtest.h>

namespace tallyra::standins::lexbank {
namespace {

TEST(Language, CodesOfAnyCaseAndRegionChooseTheTexts) {
  const struct {
    const char* code;
    const Texts& texts;
  } cases[] = {
      {"EN", english},     {"en", english},   {"en-US", english},  {"ENGLISH", english},
      {"enu", english},    {"ZH", chinese},   {"zh-CN", chinese},  {"zh_Hans", chinese},
      {"CHS", chinese},    {"GB", chinese},   {"gb2312", chinese}, {"Chinese", chinese},
      {"DE", german},      {"de-AT", german}, {"German", german},  {" de ", german},
      {"DEUTSCH", german},
  };
  for (const auto& row : cases) EXPECT_EQ(&texts_for(row.code), &row.texts) << row.code;
}

TEST(Language, AnUnknownOrEmptyCodeMeansEnglish) {
  for (const char* code : {"", " ", "-", "FR", "xx-DE", "zhx", "d", "中文"})
    EXPECT_EQ(&texts_for(code), &english) << code;
}

}  // namespace
}  // namespace tallyra::standins::lexbank
