#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstring>
#include <thread>

#include "client/month_end/backup_copy.h"
#include "client/month_end/interruption.h"
#include "client/refusal.h"

namespace tallyra::client {
namespace {

bool write_whole(int file, const char* data, std::size_t size) {
  while (size > 0) {
    const ssize_t written = write(file, data, size);
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) return false;
    data += written;
    size -= static_cast<std::size_t>(written);
  }
  return true;
}

// Runs in the forked process: nothing here may take memory or a lock. 0, or the number of the error.
int copy(const char* from, const char* to) {
  static char buffer[1U << 16U];
  const int source = open(from, O_RDONLY | O_CLOEXEC);
  if (source < 0) return errno == ENOENT ? 0 : errno;
  const int target = open(to, O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, S_IRUSR | S_IWUSR);
  if (target < 0) return errno;
  for (;;) {
    const ssize_t size = read(source, buffer, sizeof buffer);
    if (size < 0 && errno == EINTR) continue;
    if (size < 0) return errno;
    if (size == 0) break;
    if (!write_whole(target, buffer, static_cast<std::size_t>(size))) return errno == 0 ? EIO : errno;
  }
  return fsync(target) == 0 && close(target) == 0 ? 0 : errno;
}

// An interruption of this process ends the other one too.
int status_at_end_of(pid_t child) {
  int status = 0;
  for (;;) {
    const pid_t ended = waitpid(child, &status, WNOHANG);
    if (ended == child || (ended < 0 && errno != EINTR)) return status;
    if (Interruptions::count() > 0) kill(child, SIGKILL);
    std::this_thread::sleep_for(std::chrono::milliseconds(2));
  }
}

}  // namespace

bool copy_open_database(const std::string& from, const std::string& to) {
  const pid_t child = fork();
  if (child == 0) _exit(copy(from.c_str(), to.c_str()));
  const int status = child > 0 ? status_at_end_of(child) : 0;
  if (child > 0 && (Interruptions::count() > 0 || (WIFEXITED(status) && WEXITSTATUS(status) == 0)))
    return true;
  const int error = child > 0 && WIFEXITED(status) ? WEXITSTATUS(status) : errno;
  throw Refusal("the copy '" + to + "' could not be written: " + std::strerror(error));
}

}  // namespace tallyra::client
