#include "automation/com/type_library_entries.h"

#include <oleauto.h>

#include <algorithm>
#include <string>
#include <vector>

#include "automation/com/collection_object.h"
#include "automation/com/failure.h"
#include "automation/com/file_path.h"
#include "automation/com/pointer.h"

namespace tallyra::automation::com {
namespace {

constexpr wchar_t type_library_marshaler[] = L"{00020424-0000-0000-C000-000000000046}";
constexpr wchar_t dispatch_marshaler[] = L"{00020420-0000-0000-C000-000000000046}";

struct LibraryInterface {
  std::wstring key;
  std::wstring name;
  bool is_dual;
};

std::wstring taken(BSTR text) {
  std::wstring result(text ? text : L"");
  SysFreeString(text);
  return result;
}

std::wstring name_of(ITypeLib& library, INT index) {
  BSTR name = nullptr;
  throw_if_failed(library.GetDocumentation(index, &name, nullptr, nullptr, nullptr));
  return taken(name);
}

std::wstring help_text_of(ITypeLib& library) {
  BSTR text = nullptr;
  throw_if_failed(library.GetDocumentation(-1, nullptr, &text, nullptr, nullptr));
  return taken(text);
}

// The interface of collections is registered by the runtime library that it belongs to, with a marshaler of
// its own. On a machine without that library no variable asks for it, and calls by name need no entry.
bool is_registered(const TYPEATTR& type) {
  return type.typekind == TKIND_DISPATCH && type.guid != collection_interface_id;
}

std::vector<LibraryInterface> interfaces_of(ITypeLib& library) {
  std::vector<LibraryInterface> list;
  for (UINT i = 0; i < library.GetTypeInfoCount(); ++i) {
    Pointer<ITypeInfo> info;
    TYPEATTR* attributes = nullptr;
    throw_if_failed(library.GetTypeInfo(i, info.out()));
    throw_if_failed(info->GetTypeAttr(&attributes));
    const bool has_entry = is_registered(*attributes);
    const bool is_dual = (attributes->wTypeFlags & TYPEFLAG_FDUAL) != 0;
    const std::wstring key = L"Interface\\" + guid_text(attributes->guid);
    info->ReleaseTypeAttr(attributes);
    if (has_entry) list.push_back({key, name_of(library, static_cast<INT>(i)), is_dual});
  }
  return list;
}

struct LibraryId {
  std::wstring guid;
  std::wstring version;
};

LibraryId id_of(ITypeLib& library) {
  TLIBATTR* attributes = nullptr;
  throw_if_failed(library.GetLibAttr(&attributes));
  const LibraryId id{guid_text(attributes->guid), std::to_wstring(attributes->wMajorVerNum) + L"." +
                                                      std::to_wstring(attributes->wMinorVerNum)};
  library.ReleaseTLibAttr(attributes);
  return id;
}

std::wstring version_key(const LibraryId& id) {
  return L"TypeLib\\" + id.guid + L"\\" + id.version;
}

std::wstring file_key(const LibraryId& id) {
  return version_key(id) + L"\\0\\win32";
}

// Whether a version has entries for files: for other languages or other kinds of programs.
bool has_files(const ClassesBranch& branch, const LibraryId& id) {
  const auto version = branch.copy(version_key(id));
  if (!version) return false;
  return std::any_of(version->keys.begin(), version->keys.end(), [](const auto& each) {
    return _wcsicmp(each.first.c_str(), L"FLAGS") != 0 && _wcsicmp(each.first.c_str(), L"HELPDIR") != 0;
  });
}

bool belongs_to(const ClassesBranch& branch, const LibraryInterface& each, const LibraryId& id) {
  const std::wstring key = each.key + L"\\TypeLib";
  return _wcsicmp(branch.text(key).c_str(), id.guid.c_str()) == 0 &&
         branch.text(key, L"Version") == id.version;
}

}  // namespace

void write_type_library(const ClassesBranch& branch, ITypeLib& library, const std::wstring& path) {
  const LibraryId id = id_of(library);
  const std::wstring key = version_key(id);
  branch.set(key, nullptr, help_text_of(library));
  branch.set(file_key(id), nullptr, path);
  branch.set(key + L"\\FLAGS", nullptr, L"0");
  branch.set(key + L"\\HELPDIR", nullptr, path.substr(0, path.rfind(L'\\')));
  for (const auto& each : interfaces_of(library)) {
    branch.set(each.key, nullptr, each.name);
    branch.set(each.key + L"\\ProxyStubClsid32", nullptr,
               each.is_dual ? type_library_marshaler : dispatch_marshaler);
    branch.set(each.key + L"\\TypeLib", nullptr, id.guid);
    branch.set(each.key + L"\\TypeLib", L"Version", id.version);
  }
}

void remove_type_library(const ClassesBranch& branch, ITypeLib& library, const std::wstring& path,
                         Attempts& attempts) {
  const LibraryId id = id_of(library);
  if (!is_same_path(branch.text(file_key(id)), path)) return;
  attempts.run([&] { branch.remove(file_key(id)); });
  if (has_files(branch, id)) return;
  attempts.run([&] { branch.remove(version_key(id)); });
  for (const auto& each : interfaces_of(library))
    if (belongs_to(branch, each, id)) attempts.run([&] { branch.remove(each.key); });
}

std::vector<std::wstring> type_library_keys(ITypeLib& library) {
  std::vector<std::wstring> keys{L"TypeLib\\" + id_of(library).guid};
  for (const auto& each : interfaces_of(library)) keys.push_back(each.key);
  return keys;
}

}  // namespace tallyra::automation::com
