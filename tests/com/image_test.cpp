#include <gtest/gtest.h>

#include <set>

#include "tests/com/server_dll.h"

// The DLL file itself.
namespace tallyra::tests::com {
namespace {

// Maps the file without resolving anything, so that the directories can be walked as they are.
class Image {
 public:
  Image() : module_(LoadLibraryExW(ServerDll::path().c_str(), nullptr, DONT_RESOLVE_DLL_REFERENCES)) {}
  ~Image() { FreeLibrary(module_); }
  Image(const Image&) = delete;
  Image& operator=(const Image&) = delete;

  const IMAGE_NT_HEADERS32& headers() const {
    return *at<IMAGE_NT_HEADERS32>(static_cast<DWORD>(at<IMAGE_DOS_HEADER>(0)->e_lfanew));
  }
  template <class T>
  const T* at(DWORD address) const {
    return reinterpret_cast<const T*>(reinterpret_cast<const char*>(module_) + address);
  }
  template <class T>
  const T* directory(DWORD index) const {
    return at<T>(headers().OptionalHeader.DataDirectory[index].VirtualAddress);
  }

 private:
  HMODULE module_;
};

std::string lower(std::string text) {
  for (char& c : text) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return text;
}

TEST(Image, NeedsNoDllThatWindowsDoesNotBringAlong) {
  const std::set<std::string> brought{"advapi32.dll", "kernel32.dll", "msvcrt.dll",
                                      "ole32.dll",    "oleaut32.dll", "user32.dll"};
  const Image image;
  std::set<std::string> needed;
  for (auto* entry = image.directory<IMAGE_IMPORT_DESCRIPTOR>(IMAGE_DIRECTORY_ENTRY_IMPORT); entry->Name;
       ++entry)
    needed.insert(lower(image.at<char>(entry->Name)));
  EXPECT_TRUE(needed.contains("oleaut32.dll"));
  for (const auto& name : needed) EXPECT_TRUE(brought.contains(name)) << name;
}

TEST(Image, ExportsTheEntryPointsUnderTheirPlainNames) {
  const Image image;
  const auto* exports = image.directory<IMAGE_EXPORT_DIRECTORY>(IMAGE_DIRECTORY_ENTRY_EXPORT);
  const auto* names = image.at<DWORD>(exports->AddressOfNames);
  std::set<std::string> exported;
  for (DWORD i = 0; i < exports->NumberOfNames; ++i) exported.insert(image.at<char>(names[i]));
  EXPECT_EQ(exported, (std::set<std::string>{"DllCanUnloadNow", "DllGetClassObject", "DllInstall",
                                             "DllRegisterServer", "DllUnregisterServer"}));
}

TEST(Image, IsA32BitDllThatMayBeMovedAndWhoseDataIsNoCode) {
  const Image image;
  const auto& headers = image.headers();
  EXPECT_EQ(headers.FileHeader.Machine, IMAGE_FILE_MACHINE_I386);
  EXPECT_NE(headers.FileHeader.Characteristics & IMAGE_FILE_DLL, 0);
  EXPECT_NE(headers.OptionalHeader.DllCharacteristics & IMAGE_DLLCHARACTERISTICS_DYNAMIC_BASE, 0);
  EXPECT_NE(headers.OptionalHeader.DllCharacteristics & IMAGE_DLLCHARACTERISTICS_NX_COMPAT, 0);
  EXPECT_NE(headers.OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_BASERELOC].Size, 0U);
}

TEST(Image, TellsItsVersion) {
  const std::wstring path = ServerDll::path();
  std::vector<char> data(GetFileVersionInfoSizeW(path.c_str(), nullptr));
  ASSERT_FALSE(data.empty());
  ASSERT_TRUE(GetFileVersionInfoW(path.c_str(), 0, static_cast<DWORD>(data.size()), data.data()));
  void* found = nullptr;
  UINT size = 0;
  ASSERT_TRUE(VerQueryValueW(data.data(), L"\\StringFileInfo\\040904B0\\ProductName", &found, &size));
  EXPECT_STREQ(static_cast<wchar_t*>(found), L"Tallyra");
  ASSERT_TRUE(VerQueryValueW(data.data(), L"\\StringFileInfo\\040904B0\\OriginalFilename", &found, &size));
  EXPECT_STREQ(static_cast<wchar_t*>(found), L"Tallyra.dll");
  ASSERT_TRUE(VerQueryValueW(data.data(), L"\\", &found, &size));
  const auto* fixed = static_cast<const VS_FIXEDFILEINFO*>(found);
  EXPECT_EQ(fixed->dwFileVersionMS, MAKELONG(0, 1)) << "1.0";
  EXPECT_EQ(fixed->dwFileType, static_cast<DWORD>(VFT_DLL));
}

}  // namespace
}  // namespace tallyra::tests::com
