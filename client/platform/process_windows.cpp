#include <windows.h>
// After what it stands on.
#include <lmcons.h>

#include "client/platform/process.h"
#include "client/platform/wide_text_windows.h"

namespace tallyra::client {
namespace {

std::string start_of(HANDLE process) {
  FILETIME created{};
  FILETIME ended{};
  FILETIME in_kernel{};
  FILETIME in_user{};
  if (!GetProcessTimes(process, &created, &ended, &in_kernel, &in_user)) return {};
  return std::to_string((static_cast<std::uint64_t>(created.dwHighDateTime) << 32U) | created.dwLowDateTime);
}

}  // namespace

ProcessIdentity this_process() {
  return {static_cast<std::int64_t>(GetCurrentProcessId()), start_of(GetCurrentProcess())};
}

bool is_alive(const ProcessIdentity& process) {
  const HANDLE handle = OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, static_cast<DWORD>(process.id));
  if (!handle) return GetLastError() == ERROR_ACCESS_DENIED;
  DWORD exit_code = 0;
  const bool running = GetExitCodeProcess(handle, &exit_code) && exit_code == STILL_ACTIVE;
  const std::string started = start_of(handle);
  CloseHandle(handle);
  return running && (process.started.empty() || started.empty() || started == process.started);
}

std::string host_name() {
  wchar_t name[MAX_COMPUTERNAME_LENGTH + 1] = {};
  DWORD size = MAX_COMPUTERNAME_LENGTH + 1;
  return GetComputerNameW(name, &size) ? utf8_text(name) : std::string();
}

std::string system_user() {
  wchar_t name[UNLEN + 1] = {};
  DWORD size = UNLEN + 1;
  return GetUserNameW(name, &size) ? utf8_text(name) : std::string();
}

}  // namespace tallyra::client
