#include <windows.h>

#include "client/platform/database_path.h"
#include "client/platform/wide_text_windows.h"

namespace tallyra::client {
namespace {

// Wine tells by this function, which Windows does not have.
using UnixFileName = char*(__cdecl*)(const wchar_t*);

UnixFileName unix_file_name() {
  const HMODULE kernel = GetModuleHandleW(L"kernel32.dll");
  if (!kernel) return nullptr;
  return reinterpret_cast<UnixFileName>(
      reinterpret_cast<void*>(GetProcAddress(kernel, "wine_get_unix_file_name")));
}

}  // namespace

std::string driver_path(const std::string& path) {
  const auto tell = unix_file_name();
  if (!tell || !has_drive(path)) return path;
  char* const name = tell(wide_text(path).c_str());
  if (!name) return path;
  std::string result = name;
  HeapFree(GetProcessHeap(), 0, name);
  return result;
}

}  // namespace tallyra::client
