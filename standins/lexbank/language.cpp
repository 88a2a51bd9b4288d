#include "standins/lexbank/language.h"

#include "automation/convert.h"
#include "automation/folded_name.h"

namespace tallyra::standins::lexbank {
namespace {

struct LanguageWord {
  std::string_view word;
  const Texts& texts;
};

const LanguageWord language_words[] = {
    {"zh", chinese}, {"zho", chinese},     {"chi", chinese}, {"chs", chinese},     {"chn", chinese},
    {"cn", chinese}, {"chinese", chinese}, {"gb", chinese},  {"gbk", chinese},     {"gb2312", chinese},
    {"de", german},  {"deu", german},      {"ger", german},  {"german", german},   {"deutsch", german},
    {"en", english}, {"eng", english},     {"enu", english}, {"english", english},
};

}  // namespace

const Texts& texts_for(std::string_view language) {
  const std::string code = automation::trimmed(language);
  const std::string_view word = std::string_view(code).substr(0, code.find_first_of("-_"));
  for (const LanguageWord& entry : language_words)
    if (automation::equals_folded(entry.word, word)) return entry.texts;
  return english;
}

}  // namespace tallyra::standins::lexbank
