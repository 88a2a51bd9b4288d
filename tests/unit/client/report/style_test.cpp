#include "client/report/style.h"

#include <gtest/gtest.h>

#include <cctype>
#include <set>
#include <string>

namespace tallyra::client {
namespace {

// The names in a text that begin with a mark and go on in letters and digits.
std::set<std::string> names_behind(std::string_view text, std::string_view mark) {
  std::set<std::string> names;
  for (auto at = text.find(mark); at != std::string_view::npos; at = text.find(mark, at + 1)) {
    const auto begin = at + mark.size();
    auto end = begin;
    while (end < text.size() && std::isalnum(static_cast<unsigned char>(text[end])) != 0) ++end;
    names.emplace(text.substr(begin, end - begin));
  }
  return names;
}

TEST(ReportStyle, HasEveryColourThatItUsesInLightAndInDark) {
  const std::string style(report_style);
  const auto used = names_behind(style, "var(--");
  EXPECT_GT(used.size(), 5U);
  for (const char* scheme :
       {":root { color-scheme: light dark;", "@media (prefers-color-scheme: dark) { :root {"}) {
    const auto begin = style.find(scheme);
    ASSERT_NE(begin, std::string::npos) << scheme;
    const std::string rule = style.substr(begin, style.find('}', begin) - begin);
    for (const std::string& name : used)
      EXPECT_NE(rule.find("--" + name + ":"), std::string::npos) << scheme << " " << name;
  }
}

TEST(ReportStyle, AsksForNothingFromElsewhere) {
  for (const char* word : {"url(", "@import", "http"})
    EXPECT_EQ(report_style.find(word), std::string_view::npos) << word;
}

}  // namespace
}  // namespace tallyra::client
