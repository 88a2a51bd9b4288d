#include "automation/com/registry_tree.h"

#include "automation/com/failure.h"

namespace tallyra::automation::com {
namespace {

// The system's limits for names, in characters.
constexpr DWORD longest_key_name = 256;
constexpr DWORD longest_value_name = 16384;

void require(LSTATUS status) {
  throw_if_failed(HRESULT_FROM_WIN32(static_cast<DWORD>(status)));
}

HKEY opened(HKEY parent, const std::wstring& name) {
  HKEY key = nullptr;
  require(RegOpenKeyExW(parent, name.c_str(), 0, KEY_READ, &key));
  return key;
}

HKEY created(HKEY parent, const std::wstring& name) {
  HKEY key = nullptr;
  require(RegCreateKeyExW(parent, name.c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE, KEY_READ | KEY_WRITE,
                          nullptr, &key, nullptr));
  return key;
}

RegistryTree::Content content_of(HKEY key, const std::wstring& name) {
  RegistryTree::Content content{REG_NONE, {}};
  LSTATUS status = ERROR_MORE_DATA;
  // Somebody may make the value longer meanwhile.
  while (status == ERROR_MORE_DATA) {
    DWORD size = 0;
    require(RegQueryValueExW(key, name.c_str(), nullptr, nullptr, nullptr, &size));
    content.bytes.resize(size);
    status = RegQueryValueExW(key, name.c_str(), nullptr, &content.type, content.bytes.data(), &size);
    if (status == ERROR_SUCCESS) content.bytes.resize(size);
  }
  require(status);
  return content;
}

template <class Enumerate>
std::vector<std::wstring> names(DWORD longest, Enumerate&& enumerate) {
  std::vector<std::wstring> list;
  std::wstring name(longest, L'\0');
  for (DWORD index = 0;; ++index) {
    DWORD length = longest;
    const LSTATUS status = enumerate(index, name.data(), &length);
    if (status == ERROR_NO_MORE_ITEMS) return list;
    require(status);
    list.push_back(name.substr(0, length));
  }
}

std::vector<std::wstring> value_names(HKEY key) {
  return names(longest_value_name, [key](DWORD index, wchar_t* name, DWORD* length) {
    return RegEnumValueW(key, index, name, length, nullptr, nullptr, nullptr, nullptr);
  });
}

std::vector<std::wstring> key_names(HKEY key) {
  return names(longest_key_name, [key](DWORD index, wchar_t* name, DWORD* length) {
    return RegEnumKeyExW(key, index, name, length, nullptr, nullptr, nullptr, nullptr);
  });
}

}  // namespace

RegistryTree read_tree(HKEY key) {
  RegistryTree tree;
  for (const auto& name : value_names(key)) tree.values.emplace(name, content_of(key, name));
  for (const auto& name : key_names(key)) tree.keys.emplace(name, read_tree(OpenKey(opened(key, name))));
  return tree;
}

void write_tree(HKEY key, const RegistryTree& tree) {
  for (const auto& name : value_names(key))
    if (!tree.values.contains(name)) require(RegDeleteValueW(key, name.c_str()));
  for (const auto& name : key_names(key))
    if (!tree.keys.contains(name)) require(RegDeleteTreeW(key, name.c_str()));
  for (const auto& [name, content] : tree.values)
    require(RegSetValueExW(key, name.c_str(), 0, content.type, content.bytes.data(),
                           static_cast<DWORD>(content.bytes.size())));
  for (const auto& [name, child] : tree.keys) write_tree(OpenKey(created(key, name)), child);
}

}  // namespace tallyra::automation::com
