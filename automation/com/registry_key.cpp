#include "automation/com/registry_key.h"

#include <objbase.h>

#include <algorithm>

#include "automation/com/failure.h"

namespace tallyra::automation::com {

void ClassesBranch::set(const std::wstring& key, const wchar_t* name, const std::wstring& text) const {
  HKEY opened = nullptr;
  LSTATUS status = RegCreateKeyExW(root_, path(key).c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE,
                                   KEY_SET_VALUE, nullptr, &opened, nullptr);
  if (status == ERROR_SUCCESS) {
    status = RegSetValueExW(opened, name, 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()),
                            static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
    RegCloseKey(opened);
  }
  throw_if_failed(HRESULT_FROM_WIN32(static_cast<DWORD>(status)));
}

std::wstring ClassesBranch::text(const std::wstring& key, const wchar_t* name) const {
  std::wstring text(256, L'\0');
  LSTATUS status = ERROR_MORE_DATA;
  // Somebody may make the text longer meanwhile.
  while (status == ERROR_MORE_DATA) {
    auto size = static_cast<DWORD>(text.size() * sizeof(wchar_t));
    status = RegGetValueW(root_, path(key).c_str(), name, RRF_RT_REG_SZ, nullptr, text.data(), &size);
    if (status == ERROR_MORE_DATA)
      text.resize(std::max<std::size_t>(2 * text.size(), size / sizeof(wchar_t)));
  }
  return status == ERROR_SUCCESS ? text.c_str() : std::wstring();
}

void ClassesBranch::remove(const std::wstring& key) const {
  const LSTATUS status = RegDeleteTreeW(root_, path(key).c_str());
  if (status == ERROR_FILE_NOT_FOUND) return;
  throw_if_failed(HRESULT_FROM_WIN32(static_cast<DWORD>(status)));
  for (auto end = key.rfind(L'\\'); end != key.npos; end = key.rfind(L'\\', end - 1))
    if (!remove_if_empty(key.substr(0, end))) return;
}

std::optional<RegistryTree> ClassesBranch::copy(const std::wstring& key) const {
  HKEY opened = nullptr;
  const LSTATUS status = RegOpenKeyExW(root_, path(key).c_str(), 0, KEY_READ, &opened);
  if (status == ERROR_FILE_NOT_FOUND) return std::nullopt;
  throw_if_failed(HRESULT_FROM_WIN32(static_cast<DWORD>(status)));
  return read_tree(OpenKey(opened));
}

void ClassesBranch::restore(const std::wstring& key, const std::optional<RegistryTree>& copy) const {
  if (!copy) return remove(key);
  HKEY opened = nullptr;
  throw_if_failed(HRESULT_FROM_WIN32(
      static_cast<DWORD>(RegCreateKeyExW(root_, path(key).c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE,
                                         KEY_READ | KEY_WRITE, nullptr, &opened, nullptr))));
  write_tree(OpenKey(opened), *copy);
}

bool ClassesBranch::remove_if_empty(const std::wstring& key) const {
  HKEY opened = nullptr;
  if (RegOpenKeyExW(root_, path(key).c_str(), 0, KEY_READ, &opened) != ERROR_SUCCESS) return false;
  DWORD keys = 1;
  DWORD values = 1;
  RegQueryInfoKeyW(opened, nullptr, nullptr, nullptr, &keys, nullptr, nullptr, &values, nullptr, nullptr,
                   nullptr, nullptr);
  RegCloseKey(opened);
  return keys == 0 && values == 0 && RegDeleteKeyW(root_, path(key).c_str()) == ERROR_SUCCESS;
}

std::wstring guid_text(REFGUID guid) {
  wchar_t text[39];
  StringFromGUID2(guid, text, 39);
  return text;
}

}  // namespace tallyra::automation::com
