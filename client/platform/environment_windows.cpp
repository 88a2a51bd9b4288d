#include <windows.h>

#include "client/platform/environment.h"
#include "client/platform/wide_text_windows.h"

namespace tallyra::client {

std::optional<std::string> environment_variable(const std::string& name) {
  const std::wstring wide_name = wide_text(name);
  SetLastError(ERROR_SUCCESS);
  const DWORD size = GetEnvironmentVariableW(wide_name.c_str(), nullptr, 0);
  if (size == 0 && GetLastError() == ERROR_ENVVAR_NOT_FOUND) return std::nullopt;
  std::wstring value(size, L'\0');
  GetEnvironmentVariableW(wide_name.c_str(), value.data(), size);
  return utf8_text(value.c_str());
}

}  // namespace tallyra::client
