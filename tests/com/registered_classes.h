#pragma once

#include <windows.h>

#include <set>
#include <string>

// The system's registry of classes as tests look at it and prepare it. Keys are named below Software\Classes
// of HKEY_LOCAL_MACHINE or HKEY_CURRENT_USER.
namespace tallyra::tests::com {

inline constexpr wchar_t classes_path[] = L"Software\\Classes";

// Every key and text, one line each.
std::set<std::wstring> registered(HKEY root);

// "(none)" when there is none.
std::wstring text_at(HKEY root, const std::wstring& key, const wchar_t* name = nullptr);
void set_text(HKEY root, const std::wstring& key, const std::wstring& text, const wchar_t* name = nullptr);
void remove_key(HKEY root, const std::wstring& key);

// As it is written in the registry, with braces.
std::wstring guid_text(REFGUID guid);

}  // namespace tallyra::tests::com
