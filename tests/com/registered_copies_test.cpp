#include <gtest/gtest.h>

#include <cwctype>

#include "automation/com/text.h"
#include "server/class_table.h"
#include "tallyra.h"
#include "tests/com/registered_classes.h"
#include "tests/com/server_dll.h"

// Several copies of the DLL on one machine: unregistering one takes away what points to it and nothing else.
namespace tallyra::tests::com {
namespace {

// The DLL in a folder of its own, for as long as this lives.
class CopiedFile {
 public:
  explicit CopiedFile(const wchar_t* name) {
    wchar_t temporary[512];
    GetTempPathW(512, temporary);
    folder_ = std::wstring(temporary) + L"Tallyra copies " + std::to_wstring(GetCurrentProcessId()) + name;
    EXPECT_TRUE(CreateDirectoryW(folder_.c_str(), nullptr));
    EXPECT_TRUE(CopyFileW(ServerDll::path().c_str(), path().c_str(), TRUE));
  }
  ~CopiedFile() {
    EXPECT_TRUE(DeleteFileW(path().c_str()));
    EXPECT_TRUE(RemoveDirectoryW(folder_.c_str()));
  }
  CopiedFile(const CopiedFile&) = delete;
  CopiedFile& operator=(const CopiedFile&) = delete;

  std::wstring path() const { return folder_ + L"\\Tallyra.dll"; }

 private:
  std::wstring folder_;
};

struct Copy {
  explicit Copy(const wchar_t* name) : file(name), dll(file.path()) {}

  HRESULT install(HKEY root) const { return dll.install(true, words(root)); }
  HRESULT uninstall(HKEY root) const { return dll.install(false, words(root)); }
  static const wchar_t* words(HKEY root) { return root == HKEY_CURRENT_USER ? L"user" : L""; }

  CopiedFile file;
  ServerDll dll;
};

const std::wstring library_key = L"TypeLib\\" + guid_text(LIBID_Tallyra);
const std::wstring file_key = library_key + L"\\1.0\\0\\win32";
const std::wstring interface_key = L"Interface\\" + guid_text(IID__CRevAddr);
const std::wstring close_key = L"CLSID\\" + guid_text(CLSID_CStockClose);
const std::wstring address_key = L"CLSID\\" + guid_text(CLSID_CRevAddr);

class RegisteredCopies : public testing::Test {
 protected:
  RegisteredCopies() : was_registered_(is_there(L"Tallyra.CRevAddr\\CLSID")) {
    own_.unregister_server();
    before_ = registered(HKEY_LOCAL_MACHINE);
    user_before_ = registered(HKEY_CURRENT_USER);
  }
  ~RegisteredCopies() override {
    EXPECT_EQ(registered(HKEY_LOCAL_MACHINE), before_);
    EXPECT_EQ(registered(HKEY_CURRENT_USER), user_before_);
    if (was_registered_) own_.register_server();
  }

  static bool is_there(const std::wstring& key, const wchar_t* name = nullptr) {
    return text_at(HKEY_LOCAL_MACHINE, key, name) != L"(none)";
  }
  static void point(const std::wstring& class_key, const std::wstring& path) {
    set_text(HKEY_LOCAL_MACHINE, class_key + L"\\InprocServer32", path);
  }

  ServerDll own_;
  bool was_registered_;
  Copy old_{L" old"};
  Copy fresh_{L" new"};
  std::set<std::wstring> before_;
  std::set<std::wstring> user_before_;
};

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

TEST_F(RegisteredCopies, AnotherVersionOfTheTypeLibraryStaysWithItsInterfaces) {
  ASSERT_EQ(old_.install(HKEY_LOCAL_MACHINE), S_OK);
  set_text(HKEY_LOCAL_MACHINE, library_key + L"\\1.1\\0\\win32", fresh_.file.path());
  set_text(HKEY_LOCAL_MACHINE, interface_key + L"\\TypeLib", L"1.1", L"Version");
  EXPECT_EQ(old_.uninstall(HKEY_LOCAL_MACHINE), S_OK);
  EXPECT_FALSE(is_there(file_key));
  EXPECT_EQ(text_at(HKEY_LOCAL_MACHINE, library_key + L"\\1.1\\0\\win32"), fresh_.file.path());
  EXPECT_EQ(text_at(HKEY_LOCAL_MACHINE, interface_key), L"_CRevAddr");
  EXPECT_TRUE(is_there(interface_key + L"\\ProxyStubClsid32"));
  EXPECT_FALSE(is_there(L"Interface\\" + guid_text(IID__CStockClose)));
  remove_key(HKEY_LOCAL_MACHINE, library_key);
  remove_key(HKEY_LOCAL_MACHINE, interface_key);
}

TEST_F(RegisteredCopies, AnInterfaceOfAnotherLibraryStays) {
  ASSERT_EQ(old_.install(HKEY_LOCAL_MACHINE), S_OK);
  set_text(HKEY_LOCAL_MACHINE, interface_key + L"\\TypeLib", L"{11111111-2222-3333-4444-555555555555}");
  EXPECT_EQ(old_.uninstall(HKEY_LOCAL_MACHINE), S_OK);
  EXPECT_EQ(text_at(HKEY_LOCAL_MACHINE, interface_key), L"_CRevAddr");
  EXPECT_FALSE(is_there(library_key + L"\\1.0"));
  remove_key(HKEY_LOCAL_MACHINE, interface_key);
}

TEST_F(RegisteredCopies, TheTypeLibraryOfAnotherOneStaysWithItsInterfaces) {
  ASSERT_EQ(fresh_.install(HKEY_LOCAL_MACHINE), S_OK);
  point(close_key, old_.file.path());
  const auto library = text_at(HKEY_LOCAL_MACHINE, library_key + L"\\1.0");
  EXPECT_EQ(old_.uninstall(HKEY_LOCAL_MACHINE), S_OK);
  EXPECT_FALSE(is_there(close_key));
  EXPECT_FALSE(is_there(L"Tallyra.CStockClose\\CLSID"));
  EXPECT_TRUE(is_there(address_key));
  EXPECT_EQ(text_at(HKEY_LOCAL_MACHINE, library_key + L"\\1.0"), library);
  EXPECT_TRUE(is_there(interface_key + L"\\TypeLib"));
  EXPECT_EQ(fresh_.uninstall(HKEY_LOCAL_MACHINE), S_OK);
}

// Of a library for programs of another kind, which lies elsewhere.
TEST_F(RegisteredCopies, AnotherFileOfTheSameVersionKeepsTheLibrary) {
  ASSERT_EQ(old_.install(HKEY_LOCAL_MACHINE), S_OK);
  set_text(HKEY_LOCAL_MACHINE, library_key + L"\\1.0\\0\\win64", L"C:\\elsewhere\\Tallyra.dll");
  EXPECT_EQ(old_.uninstall(HKEY_LOCAL_MACHINE), S_OK);
  EXPECT_FALSE(is_there(file_key));
  EXPECT_TRUE(is_there(library_key + L"\\1.0\\0\\win64"));
  EXPECT_TRUE(is_there(library_key + L"\\1.0\\FLAGS"));
  EXPECT_TRUE(is_there(interface_key + L"\\ProxyStubClsid32"));
  EXPECT_FALSE(is_there(close_key));
  set_text(HKEY_LOCAL_MACHINE, file_key, old_.file.path());
  remove_key(HKEY_LOCAL_MACHINE, library_key + L"\\1.0\\0\\win64");
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
