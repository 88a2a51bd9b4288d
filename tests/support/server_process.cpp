#include "tests/support/server_process.h"

#include <fcntl.h>
#include <grp.h>
#include <pwd.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace tallyra::tests {
namespace {

const passwd* unprivileged_user() {
  for (const char* const name : {"postgres", "nobody"})
    if (const passwd* const user = ::getpwnam(name)) return user;
  throw std::runtime_error("no unprivileged user on this machine");
}

}  // namespace

void give_to_unprivileged_user(const std::string& path) {
  if (::geteuid() != 0) return;
  const passwd* const user = unprivileged_user();
  if (::chown(path.c_str(), user->pw_uid, user->pw_gid) != 0)
    throw std::runtime_error(path + " cannot be given away");
}

pid_t start_program(const std::vector<std::string>& command, const std::string& log) {
  std::vector<char*> arguments;
  for (const std::string& part : command) arguments.push_back(const_cast<char*>(part.c_str()));
  arguments.push_back(nullptr);
  const passwd* const user = ::geteuid() == 0 ? unprivileged_user() : nullptr;
  const pid_t child = ::fork();
  if (child != 0) return child;
  ::setsid();
  const int out = ::open(log.c_str(), O_WRONLY | O_CREAT | O_APPEND, 0666);
  ::dup2(out, 1);
  ::dup2(out, 2);
  const bool is_unprivileged =
      user == nullptr ||
      (::setgroups(0, nullptr) == 0 && ::setgid(user->pw_gid) == 0 && ::setuid(user->pw_uid) == 0);
  // A test that is ended leaves no server behind.
  ::prctl(PR_SET_PDEATHSIG, SIGQUIT);
  if (is_unprivileged) ::execv(arguments[0], arguments.data());
  ::_exit(127);
}

std::string log_text(const std::string& log) {
  std::ifstream text(log);
  return {std::istreambuf_iterator<char>(text), {}};
}

void run_program(const std::vector<std::string>& command, const std::string& log) {
  int status = 0;
  if (::waitpid(start_program(command, log), &status, 0) < 0 || status != 0) {
    throw std::runtime_error(command.front() + ": " + log_text(log));
  }
}

std::vector<pid_t> children_of(pid_t process) {
  const std::string number = std::to_string(process);
  std::ifstream list("/proc/" + number + "/task/" + number + "/children");
  std::vector<pid_t> children;
  for (pid_t child = 0; list >> child;) children.push_back(child);
  return children;
}

bool is_alive(pid_t process) {
  std::ifstream status("/proc/" + std::to_string(process) + "/stat");
  std::string number;
  std::string name;
  char state = 'X';
  status >> number >> name >> state;
  return status && state != 'Z' && state != 'X';
}

}  // namespace tallyra::tests
