#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>
#include <fstream>
#include <map>
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

// The sections of an image file by their names, with what they hold.
class Sections {
 public:
  explicit Sections(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    data_.assign(std::istreambuf_iterator<char>(stream), {});
    if (data_.size() < 0x1000) return;
    const auto header =
        read<IMAGE_NT_HEADERS32>(static_cast<std::size_t>(read<IMAGE_DOS_HEADER>(0).e_lfanew));
    const auto first = static_cast<std::size_t>(read<IMAGE_DOS_HEADER>(0).e_lfanew) +
                       offsetof(IMAGE_NT_HEADERS32, OptionalHeader) + header.FileHeader.SizeOfOptionalHeader;
    symbols_ = header.FileHeader.NumberOfSymbols;
    const std::size_t texts =
        header.FileHeader.PointerToSymbolTable + symbols_ * std::size_t{IMAGE_SIZEOF_SYMBOL};
    for (std::size_t i = 0; i < header.FileHeader.NumberOfSections; ++i) {
      const auto section = read<IMAGE_SECTION_HEADER>(first + i * sizeof(IMAGE_SECTION_HEADER));
      std::string name(reinterpret_cast<const char*>(section.Name), IMAGE_SIZEOF_SHORT_NAME);
      name = name.c_str();
      // A long name stands behind the symbols, and its place there in the header.
      if (name[0] == '/') name = &data_.at(texts + std::stoul(name.substr(1)));
      held_[name] = data_.substr(section.PointerToRawData, section.SizeOfRawData);
    }
  }
  const std::map<std::string, std::string>& all() const { return held_; }
  std::size_t symbols() const { return symbols_; }

 private:
  template <class T>
  T read(std::size_t offset) const {
    T value;
    std::memcpy(&value, data_.substr(offset, sizeof(T)).data(), sizeof(T));
    return value;
  }

  std::string data_;
  std::map<std::string, std::string> held_;
  std::size_t symbols_ = 0;
};

// What the version resource says under a name in English.
std::wstring version_text(const std::wstring& name) {
  const std::wstring path = ServerDll::path();
  std::vector<char> data(GetFileVersionInfoSizeW(path.c_str(), nullptr));
  void* found = nullptr;
  UINT size = 0;
  if (!GetFileVersionInfoW(path.c_str(), 0, static_cast<DWORD>(data.size()), data.data()) ||
      !VerQueryValueW(data.data(), (L"\\StringFileInfo\\040904B0\\" + name).c_str(), &found, &size))
    return L"nothing";
  return static_cast<const wchar_t*>(found);
}

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

TEST(Image, HasItsDebugInformationBesideIt) {
  const Sections shipped(ServerDll::path());
  ASSERT_TRUE(shipped.all().contains(".text"));
  for (const auto& [name, content] : shipped.all()) EXPECT_FALSE(name.starts_with(".debug")) << name;
  EXPECT_EQ(shipped.symbols(), 0U);
  ASSERT_TRUE(shipped.all().contains(".gnu_debuglink"));
  EXPECT_STREQ(shipped.all().at(".gnu_debuglink").c_str(), "Tallyra.dll.debug");

  const Sections beside(ServerDll::path() + L".debug");
  ASSERT_TRUE(beside.all().contains(".debug_info"));
  ASSERT_TRUE(beside.all().contains(".debug_line_str"));
  EXPECT_NE(beside.all().at(".debug_line_str").find("stock_close_insert.cpp"), std::string::npos)
      << "lines of the component, not of the runtime alone";
}

TEST(Image, TellsWhatItIsAndWhoseItIs) {
  EXPECT_EQ(version_text(L"ProductName"), L"Tallyra");
  EXPECT_EQ(version_text(L"OriginalFilename"), L"Tallyra.dll");
  EXPECT_EQ(version_text(L"CompanyName"), L"The Tallyra authors");
  EXPECT_EQ(version_text(L"LegalCopyright"), L"Copyright (c) 2026 The Tallyra authors");
}

TEST(Image, TellsItsVersion) {
  const std::wstring path = ServerDll::path();
  std::vector<char> data(GetFileVersionInfoSizeW(path.c_str(), nullptr));
  ASSERT_FALSE(data.empty());
  ASSERT_TRUE(GetFileVersionInfoW(path.c_str(), 0, static_cast<DWORD>(data.size()), data.data()));
  void* found = nullptr;
  UINT size = 0;
  ASSERT_TRUE(VerQueryValueW(data.data(), L"\\", &found, &size));
  const auto* fixed = static_cast<const VS_FIXEDFILEINFO*>(found);
  EXPECT_EQ(fixed->dwFileVersionMS, MAKELONG(TALLYRA_MINOR, TALLYRA_MAJOR));
  EXPECT_EQ(fixed->dwFileVersionLS, MAKELONG(0, TALLYRA_PATCH));
  EXPECT_EQ(fixed->dwFileType, static_cast<DWORD>(VFT_DLL));
}

}  // namespace
}  // namespace tallyra::tests::com
