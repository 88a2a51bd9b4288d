#include <gtest/gtest.h>

#include <cwctype>

#include "automation/com/text.h"
#include "server/class_table.h"
#include "tests/com/registered_copies.h"

// Unregistering one copy of the DLL takes away what points to it and nothing else.
namespace tallyra::tests::com {
namespace {

TEST_F(RegisteredCopies, AnOldOneTakesNothingFromTheOneRegisteredAfterIt) {
  for (const HKEY root : {HKEY_LOCAL_MACHINE, HKEY_CURRENT_USER}) {
    ASSERT_EQ(old_.install(root), S_OK);
    ASSERT_EQ(fresh_.install(root), S_OK);
    const auto registered_after = registered(root);
    EXPECT_EQ(old_.uninstall(root), S_OK);
    EXPECT_EQ(registered(root), registered_after);
    EXPECT_EQ(text_at(root, close_key + L"\\InprocServer32"), fresh_.file.path());
    EXPECT_EQ(text_at(root, file_key), fresh_.file.path());
    EXPECT_EQ(fresh_.uninstall(root), S_OK);
    EXPECT_EQ(registered(root), root == HKEY_LOCAL_MACHINE ? before_ : user_before_);
  }
}

TEST_F(RegisteredCopies, TheUsersAndTheMachinesDoNotTouchEachOther) {
  ASSERT_EQ(old_.install(HKEY_LOCAL_MACHINE), S_OK);
  ASSERT_EQ(fresh_.install(HKEY_CURRENT_USER), S_OK);
  const auto machine = registered(HKEY_LOCAL_MACHINE);
  const auto user = registered(HKEY_CURRENT_USER);
  EXPECT_EQ(old_.uninstall(HKEY_CURRENT_USER), S_OK);
  EXPECT_EQ(fresh_.uninstall(HKEY_LOCAL_MACHINE), S_OK);
  EXPECT_EQ(registered(HKEY_LOCAL_MACHINE), machine);
  EXPECT_EQ(registered(HKEY_CURRENT_USER), user);
  EXPECT_EQ(fresh_.uninstall(HKEY_CURRENT_USER), S_OK);
  EXPECT_EQ(registered(HKEY_LOCAL_MACHINE), machine);
  EXPECT_EQ(old_.uninstall(HKEY_LOCAL_MACHINE), S_OK);
}

TEST_F(RegisteredCopies, AClassOfAnotherOneStaysWithItsNames) {
  ASSERT_EQ(old_.install(HKEY_LOCAL_MACHINE), S_OK);
  point(close_key, fresh_.file.path());
  EXPECT_EQ(old_.uninstall(HKEY_LOCAL_MACHINE), S_OK);
  for (const auto& key : {close_key + L"\\ProgID", std::wstring(L"Tallyra.CStockClose\\CLSID"),
                          std::wstring(L"Tallyra.CStockClose.1\\CLSID")})
    EXPECT_TRUE(is_there(key)) << testing::PrintToString(key);
  EXPECT_FALSE(is_there(address_key));
  EXPECT_FALSE(is_there(L"Tallyra.CRevAddr\\CLSID"));
  EXPECT_EQ(fresh_.uninstall(HKEY_LOCAL_MACHINE), S_OK);
}

TEST_F(RegisteredCopies, WhatWasReplacedIsGivenBackByTheLastOne) {
  const std::wstring prog_id = L"Tallyra.CStockClose";
  set_text(HKEY_LOCAL_MACHINE, prog_id + L"\\CLSID", L"{11111111-2222-3333-4444-555555555555}");
  const auto foreign = registered(HKEY_LOCAL_MACHINE);
  ASSERT_EQ(old_.dll.install(true, L"replace"), S_OK);
  ASSERT_EQ(fresh_.install(HKEY_LOCAL_MACHINE), S_OK);
  EXPECT_EQ(old_.uninstall(HKEY_LOCAL_MACHINE), S_OK);
  EXPECT_EQ(text_at(HKEY_LOCAL_MACHINE, prog_id + L"\\CLSID"), guid_text(CLSID_CStockClose));
  EXPECT_EQ(fresh_.uninstall(HKEY_LOCAL_MACHINE), S_OK);
  EXPECT_EQ(registered(HKEY_LOCAL_MACHINE), foreign);
  remove_key(HKEY_LOCAL_MACHINE, prog_id);
}

std::wstring in_capitals(std::wstring path) {
  for (wchar_t& letter : path) letter = static_cast<wchar_t>(std::towupper(letter));
  return path;
}

std::wstring short_form(const std::wstring& path) {
  wchar_t form[512];
  const DWORD length = GetShortPathNameW(path.c_str(), form, 512);
  EXPECT_GT(length, 0U);
  return std::wstring(form, length);
}

std::wstring with_detour(std::wstring path) {
  return path.insert(path.rfind(L'\\'), L"\\detour\\..");
}

TEST_F(RegisteredCopies, APathIsTheSameInEveryForm) {
  const std::wstring path = old_.file.path();
  EXPECT_NE(short_form(path), path);
  for (const auto& form : {in_capitals(path), short_form(path), with_detour(path), L"\"" + path + L"\""}) {
    SCOPED_TRACE(testing::PrintToString(form));
    ASSERT_EQ(old_.install(HKEY_LOCAL_MACHINE), S_OK);
    for (const auto& table : server::classes()) {
      CLSID id;
      ASSERT_EQ(CLSIDFromProgID((L"Tallyra." + automation::com::to_utf16(table.name)).c_str(), &id), S_OK);
      point(L"CLSID\\" + guid_text(id), form);
    }
    set_text(HKEY_LOCAL_MACHINE, file_key, form);
    EXPECT_EQ(old_.uninstall(HKEY_LOCAL_MACHINE), S_OK);
    EXPECT_EQ(registered(HKEY_LOCAL_MACHINE), before_);
  }
}

TEST_F(RegisteredCopies, APathOfNoFileOrWithoutAFolderIsAnothers) {
  ASSERT_EQ(old_.install(HKEY_LOCAL_MACHINE), S_OK);
  for (const wchar_t* path : {L"C:\\no such folder\\Tallyra.dll", L"Tallyra.dll", L""}) {
    point(close_key, path);
    EXPECT_EQ(old_.uninstall(HKEY_LOCAL_MACHINE), S_OK);
    EXPECT_TRUE(is_there(close_key + L"\\ProgID"));
  }
  point(close_key, old_.file.path());
  EXPECT_EQ(old_.uninstall(HKEY_LOCAL_MACHINE), S_OK);
}

}  // namespace
}  // namespace tallyra::tests::com
