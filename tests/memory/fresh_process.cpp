#include "tests/memory/fresh_process.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <stdexcept>

namespace tallyra::memory {
namespace {

void write_all(int file, const std::string& text) {
  for (std::size_t at = 0; at < text.size();) {
    const ssize_t written = write(file, text.data() + at, text.size() - at);
    if (written <= 0) _exit(1);
    at += static_cast<std::size_t>(written);
  }
}

std::string read_all(int file) {
  std::string text;
  std::array<char, 4096> piece;
  for (ssize_t length = 0; (length = read(file, piece.data(), piece.size())) > 0;)
    text.append(piece.data(), static_cast<std::size_t>(length));
  return text;
}

}  // namespace

std::string in_fresh_process(const std::function<std::string()>& check) {
  std::array<int, 2> ends{};
  if (pipe(ends.data()) != 0) throw std::runtime_error("no pipe");
  const pid_t child = fork();
  if (child < 0) throw std::runtime_error("no process");
  if (child == 0) {
    close(ends[0]);
    // Nothing of this process is to be undone: it has everything from its parent.
    try {
      write_all(ends[1], check());
      // What a check has found out in this process would be lost with it.
      if (testing::Test::HasFailure()) throw std::runtime_error("a failed check");
    } catch (const std::exception& error) {
      write_all(ends[1], error.what());
      _exit(1);
    }
    _exit(0);
  }
  close(ends[1]);
  std::string text = read_all(ends[0]);
  close(ends[0]);
  int status = 0;
  waitpid(child, &status, 0);
  if (WIFSIGNALED(status)) return "ended by signal " + std::to_string(WTERMSIG(status));
  if (status != 0) return "ended with " + text;
  return text;
}

}  // namespace tallyra::memory
