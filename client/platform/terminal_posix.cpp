#include <sys/ioctl.h>
#include <unistd.h>

#include "client/platform/terminal.h"

namespace tallyra::client {
namespace {

// 0 when no terminal tells.
std::size_t columns_of(int file) {
  winsize size{};
  return ioctl(file, TIOCGWINSZ, &size) == 0 ? size.ws_col : 0;
}

}  // namespace

std::vector<std::string> command_line_words(int argc, char** argv) {
  return {argv + (argc > 0 ? 1 : 0), argv + argc};
}

void use_utf8_output() {}

bool input_is_terminal() {
  return isatty(STDIN_FILENO) == 1;
}

bool error_output_is_terminal() {
  return isatty(STDERR_FILENO) == 1;
}

std::size_t error_output_width() {
  constexpr std::size_t usual_width = 80;
  const std::size_t columns = columns_of(STDERR_FILENO);
  return columns == 0 ? usual_width : columns;
}

std::size_t output_width() {
  return columns_of(STDOUT_FILENO);
}

}  // namespace tallyra::client
