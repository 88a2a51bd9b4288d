#pragma once

#include <windows.h>

#include <optional>
#include <string>

#include "automation/com/registry_tree.h"

namespace tallyra::automation::com {

// A branch of the registry that classes are registered in.
class ClassesBranch {
 public:
  // HKEY_LOCAL_MACHINE or HKEY_CURRENT_USER.
  explicit ClassesBranch(HKEY root) : root_(root) {}

  // Sets a text; an empty name means the value of the key itself. Throws Error.
  void set(const std::wstring& key, const wchar_t* name, const std::wstring& text) const;
  // The text of that name, or of the key itself; empty when there is none.
  std::wstring text(const std::wstring& key, const wchar_t* name = nullptr) const;
  // Removes the key with everything below it, and those above it that are empty then; one that is not there
  // is no error. Throws Error.
  void remove(const std::wstring& key) const;

  // The key with everything below it; nothing when it is not there. Throws Error.
  std::optional<RegistryTree> copy(const std::wstring& key) const;
  // Makes the key what it was when it was copied. Throws Error.
  void restore(const std::wstring& key, const std::optional<RegistryTree>& copy) const;

 private:
  static std::wstring path(const std::wstring& key) { return L"Software\\Classes\\" + key; }

  // Whether there is such a key no more.
  bool remove_if_empty(const std::wstring& key) const;

  HKEY root_;
};

// As it is written in the registry, with braces.
std::wstring guid_text(REFGUID guid);

}  // namespace tallyra::automation::com
