#include <pwd.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <fstream>
#include <iterator>
#include <sstream>

#include "client/platform/environment.h"
#include "client/platform/process.h"

namespace tallyra::client {
namespace {

struct ProcessStatus {
  char state = 0;
  std::string started;
};

// The name of the program, in parentheses, may hold blanks and parentheses; the fields behind it hold none.
ProcessStatus status_of(std::int64_t id) {
  std::ifstream file("/proc/" + std::to_string(id) + "/stat");
  const std::string text{std::istreambuf_iterator<char>(file), {}};
  const std::size_t end_of_name = text.rfind(')');
  if (end_of_name == std::string::npos) return {};
  std::istringstream fields(text.substr(end_of_name + 1));
  constexpr int fields_up_to_start = 20;
  ProcessStatus status;
  fields >> status.state;
  for (int i = 1; i < fields_up_to_start; ++i) fields >> status.started;
  return status;
}

}  // namespace

ProcessIdentity this_process() {
  return {getpid(), status_of(getpid()).started};
}

bool is_alive(const ProcessIdentity& process) {
  if (process.id <= 0) return false;
  const ProcessStatus status = status_of(process.id);
  // One that has ended and that nobody has asked for yet.
  if (status.state == 'Z' || status.state == 'X') return false;
  if (!status.started.empty()) return process.started.empty() || status.started == process.started;
  return kill(static_cast<pid_t>(process.id), 0) == 0 || errno == EPERM;
}

std::string host_name() {
  char name[256] = {};
  if (gethostname(name, sizeof name - 1) != 0) return {};
  return name;
}

std::string system_user() {
  if (const passwd* const entry = getpwuid(geteuid())) return entry->pw_name;
  return environment_variable("USER").value_or("");
}

}  // namespace tallyra::client
