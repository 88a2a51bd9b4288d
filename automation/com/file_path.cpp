#include "automation/com/file_path.h"

#include <windows.h>

namespace tallyra::automation::com {
namespace {

// What one of the system's functions on paths makes of a path; the path itself where it cannot.
template <class Function>
std::wstring form_of(const std::wstring& path, const Function& function) {
  std::wstring form(MAX_PATH, L'\0');
  DWORD length = function(path.c_str(), form.data(), static_cast<DWORD>(form.size()));
  if (length > form.size()) {
    form.resize(length);
    length = function(path.c_str(), form.data(), static_cast<DWORD>(form.size()));
  }
  if (length == 0 || length > form.size()) return path;
  form.resize(length);
  return form;
}

std::wstring without_quotes(const std::wstring& path) {
  if (path.size() < 2 || path.front() != L'"' || path.back() != L'"') return path;
  return path.substr(1, path.size() - 2);
}

std::wstring long_form(const std::wstring& path) {
  const auto full = [](const wchar_t* from, wchar_t* to, DWORD size) {
    return GetFullPathNameW(from, size, to, nullptr);
  };
  // Names of files that are not there have no other form.
  const auto with_long_names = [](const wchar_t* from, wchar_t* to, DWORD size) {
    return GetLongPathNameW(from, to, size);
  };
  return form_of(form_of(path, full), with_long_names);
}

}  // namespace

bool is_same_path(const std::wstring& left, const std::wstring& right) {
  const std::wstring one = without_quotes(left);
  const std::wstring other = without_quotes(right);
  if (one.find_first_of(L"\\/") == one.npos || other.find_first_of(L"\\/") == other.npos) return false;
  return CompareStringOrdinal(long_form(one).c_str(), -1, long_form(other).c_str(), -1, TRUE) == CSTR_EQUAL;
}

}  // namespace tallyra::automation::com
