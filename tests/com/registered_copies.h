#pragma once

#include <gtest/gtest.h>

#include <set>
#include <string>

#include "tallyra.h"
#include "tests/com/registered_classes.h"
#include "tests/com/server_dll.h"

// Several copies of the DLL on one machine.
namespace tallyra::tests::com {

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

inline const std::wstring library_key = L"TypeLib\\" + guid_text(LIBID_Tallyra);
inline const std::wstring file_key = library_key + L"\\1.0\\0\\win32";
inline const std::wstring interface_key = L"Interface\\" + guid_text(IID__CRevAddr);
inline const std::wstring close_key = L"CLSID\\" + guid_text(CLSID_CStockClose);
inline const std::wstring address_key = L"CLSID\\" + guid_text(CLSID_CRevAddr);

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

}  // namespace tallyra::tests::com
