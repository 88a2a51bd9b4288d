#pragma once

#include <windows.h>

#include <map>
#include <string>
#include <vector>

namespace tallyra::automation::com {

// Closes the key that it is given.
class OpenKey {
 public:
  explicit OpenKey(HKEY key) : key_(key) {}
  ~OpenKey() { RegCloseKey(key_); }
  OpenKey(const OpenKey&) = delete;
  OpenKey& operator=(const OpenKey&) = delete;

  operator HKEY() const { return key_; }

 private:
  HKEY key_;
};

// A key of the registry with everything below it, kept outside the registry.
struct RegistryTree {
  struct Content {
    DWORD type;
    std::vector<BYTE> bytes;
  };

  std::map<std::wstring, Content> values;
  std::map<std::wstring, RegistryTree> keys;
};

// Throws Error.
RegistryTree read_tree(HKEY key);

// Makes the key hold what the tree holds and nothing else; keys that are there already stay the keys they
// are. Throws Error.
void write_tree(HKEY key, const RegistryTree& tree);

}  // namespace tallyra::automation::com
