#include "automation/com/text.h"

#include <gtest/gtest.h>
#include <oleauto.h>

namespace tallyra::automation::com {
namespace {

using namespace std::string_literals;

struct TextCase {
  std::wstring wide;
  std::string utf8;
};

TEST(ComText, EveryTextComesBackAsItCame) {
  const TextCase cases[] = {
      {L"", ""},
      {L"Part 1", "Part 1"},
      {L"a\0b"s, "a\0b"s},
      {L"\0"s, "\0"s},
      {L"Gr\u00F6\u00DFe",
       "Gr\xC3\xB6\xC3\x9F"
       "e"},
      {L"\u6E05\u5355", "\xE6\xB8\x85\xE5\x8D\x95"},
      {L"\xD83D\xDE00", "\xF0\x9F\x98\x80"},
      {L"\xDBFF\xDFFF", "\xF4\x8F\xBF\xBF"},
      {L"x\xD83D", "x\xED\xA0\xBD"},
      {L"\xDE00x", "\xED\xB8\x80x"},
      {L"\xDE00\xD83D", "\xED\xB8\x80\xED\xA0\xBD"},
      {L"\xFFFE\xFFFF", "\xEF\xBF\xBE\xEF\xBF\xBF"},
  };
  for (const auto& each : cases) {
    SCOPED_TRACE(testing::PrintToString(each.utf8));
    EXPECT_EQ(to_utf8(each.wide), each.utf8);
    EXPECT_EQ(to_utf16(each.utf8), each.wide);
  }
}

TEST(ComText, BytesThatAreNoTextBecomeReplacementCharacters) {
  const std::pair<std::string, std::wstring> cases[] = {
      {"\x80", L"\xFFFD"},
      {"\xFF"
       "a",
       L"\xFFFD"
       L"a"},
      {"\xC3", L"\xFFFD"},
      {"\xC3(", L"\xFFFD("},
      {"\xC0\x80", L"\xFFFD\xFFFD"},
      {"\xE0\x80\x80", L"\xFFFD\xFFFD\xFFFD"},
      {"\xF4\x90\x80\x80", L"\xFFFD\xFFFD\xFFFD\xFFFD"},
      {"\xE6\xB8", L"\xFFFD\xFFFD"},
  };
  for (const auto& [utf8, wide] : cases) EXPECT_EQ(to_utf16(utf8), wide) << testing::PrintToString(utf8);
}

TEST(ComText, ANullBstrIsAnEmptyText) {
  EXPECT_EQ(text_of(nullptr), "");
}

TEST(ComText, TenMillionCharactersTravelWhole) {
  std::string text(10'000'000, 'x');
  text[5'000'000] = '\0';
  const BSTR bstr = new_bstr(text);
  EXPECT_EQ(SysStringLen(bstr), text.size());
  EXPECT_EQ(text_of(bstr), text);
  SysFreeString(bstr);
}

}  // namespace
}  // namespace tallyra::automation::com
