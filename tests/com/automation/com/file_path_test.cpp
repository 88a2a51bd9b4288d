#include "automation/com/file_path.h"

#include <gtest/gtest.h>
#include <windows.h>

namespace tallyra::tests::com {
namespace {

using automation::com::is_same_path;

std::wstring own_path() {
  wchar_t path[512];
  return {path, GetModuleFileNameW(nullptr, path, 512)};
}

TEST(FilePath, LeadsToTheSamePlaceInEveryForm) {
  const std::wstring path = own_path();
  std::wstring capitals = path;
  CharUpperBuffW(capitals.data(), static_cast<DWORD>(capitals.size()));
  std::wstring detour = path;
  detour.insert(detour.rfind(L'\\'), L"\\detour\\..");
  for (const std::wstring& form : {path, capitals, detour, L"\"" + path + L"\""}) {
    EXPECT_TRUE(is_same_path(path, form)) << testing::PrintToString(form);
    EXPECT_TRUE(is_same_path(form, path)) << testing::PrintToString(form);
  }
}

TEST(FilePath, ThatIsAnotherIsNotTheSame) {
  const std::wstring path = own_path();
  EXPECT_FALSE(is_same_path(path, path + L"x"));
  EXPECT_FALSE(is_same_path(path, L"C:\\no such folder\\" + path.substr(path.rfind(L'\\') + 1)));
}

TEST(FilePath, WithoutAFolderLeadsNowhere) {
  EXPECT_FALSE(is_same_path(L"Tallyra.dll", L"Tallyra.dll"));
  EXPECT_FALSE(is_same_path(L"", L""));
  EXPECT_FALSE(is_same_path(L"\"\"", L"\"\""));
}

TEST(FilePath, OfNoFileIsComparedAsItIs) {
  EXPECT_TRUE(is_same_path(L"C:\\no such folder\\A.dll", L"c:\\No Such Folder\\a.DLL"));
}

}  // namespace
}  // namespace tallyra::tests::com
