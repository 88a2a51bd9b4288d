#include "client/report/words.h"

#include <algorithm>
#include <array>
#include <string>

#include "automation/convert.h"
#include "automation/folded_name.h"

namespace tallyra::client {
namespace {

constexpr std::array chinese_codes{"zh", "zho", "chi", "chs", "chn", "cn", "chinese", "gb", "gbk", "gb2312"};
constexpr std::array german_codes{"de", "deu", "ger", "german", "deutsch"};

}  // namespace

const ReportWords& words_for(std::string_view language) {
  const std::string code = automation::trimmed(language);
  const std::string_view word = std::string_view(code).substr(0, code.find_first_of("-_"));
  const auto is = [&](std::string_view known) { return automation::equals_folded(known, word); };
  if (std::ranges::any_of(chinese_codes, is)) return chinese_words;
  return std::ranges::any_of(german_codes, is) ? german_words : english_words;
}

}  // namespace tallyra::client
