#include "tests/com/registered_classes.h"

#include <gtest/gtest.h>
#include <objbase.h>

namespace tallyra::tests::com {
namespace {

std::wstring path_of(const std::wstring& key) {
  return std::wstring(classes_path) + L"\\" + key;
}

// Every key and text below a key, one line each.
void collect(HKEY key, const std::wstring& path, std::set<std::wstring>& lines) {
  wchar_t name[512];
  for (DWORD i = 0;; ++i) {
    DWORD length = 512;
    BYTE data[4096];
    DWORD size = sizeof data;
    DWORD type = 0;
    if (RegEnumValueW(key, i, name, &length, nullptr, &type, data, &size) != ERROR_SUCCESS) break;
    const bool is_text = type == REG_SZ || type == REG_EXPAND_SZ;
    lines.insert(path + L" " + name + L"=" + (is_text ? reinterpret_cast<wchar_t*>(data) : L"(data)"));
  }
  for (DWORD i = 0;; ++i) {
    DWORD length = 512;
    if (RegEnumKeyExW(key, i, name, &length, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS) break;
    lines.insert(path + L"\\" + name);
    HKEY child = nullptr;
    if (RegOpenKeyExW(key, name, 0, KEY_READ, &child) != ERROR_SUCCESS) continue;
    collect(child, path + L"\\" + name, lines);
    RegCloseKey(child);
  }
}

}  // namespace

std::set<std::wstring> registered(HKEY root) {
  std::set<std::wstring> lines;
  HKEY key = nullptr;
  if (RegOpenKeyExW(root, classes_path, 0, KEY_READ, &key) == ERROR_SUCCESS) {
    collect(key, {}, lines);
    RegCloseKey(key);
  }
  return lines;
}

std::wstring text_at(HKEY root, const std::wstring& key, const wchar_t* name) {
  wchar_t text[1024];
  DWORD size = sizeof text;
  if (RegGetValueW(root, path_of(key).c_str(), name, RRF_RT_REG_SZ, nullptr, text, &size) != ERROR_SUCCESS)
    return L"(none)";
  return text;
}

void set_text(HKEY root, const std::wstring& key, const std::wstring& text, const wchar_t* name) {
  EXPECT_EQ(RegSetKeyValueW(root, path_of(key).c_str(), name, REG_SZ, text.c_str(),
                            static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t))),
            ERROR_SUCCESS);
}

void remove_key(HKEY root, const std::wstring& key) {
  RegDeleteTreeW(root, path_of(key).c_str());
}

std::wstring guid_text(REFGUID guid) {
  wchar_t text[39];
  StringFromGUID2(guid, text, 39);
  return text;
}

}  // namespace tallyra::tests::com
