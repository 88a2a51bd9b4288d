#include "client/terminal.h"

#ifdef _WIN32
#include <windows.h>
// After what it stands on.
#include <shellapi.h>
#else
#include <sys/ioctl.h>
#include <unistd.h>
#endif

namespace tallyra::client {
namespace {

constexpr std::size_t usual_width = 80;

}  // namespace

#ifdef _WIN32

namespace {

std::string utf8(const wchar_t* text) {
  const int size = WideCharToMultiByte(CP_UTF8, 0, text, -1, nullptr, 0, nullptr, nullptr);
  if (size <= 1) return {};
  std::string result(static_cast<std::size_t>(size), '\0');
  WideCharToMultiByte(CP_UTF8, 0, text, -1, result.data(), size, nullptr, nullptr);
  result.pop_back();
  return result;
}

}  // namespace

// The narrow arguments have already lost what the system's code page cannot spell.
std::vector<std::string> command_line_words(int argc, char** argv) {
  int count = 0;
  wchar_t** const wide = CommandLineToArgvW(GetCommandLineW(), &count);
  if (!wide) return {argv + (argc > 0 ? 1 : 0), argv + argc};
  std::vector<std::string> words;
  for (int i = 1; i < count; ++i) words.push_back(utf8(wide[i]));
  LocalFree(wide);
  return words;
}

void use_utf8_output() {
  SetConsoleOutputCP(CP_UTF8);
}

bool error_output_is_terminal() {
  DWORD mode = 0;
  return GetConsoleMode(GetStdHandle(STD_ERROR_HANDLE), &mode) != 0;
}

std::size_t error_output_width() {
  CONSOLE_SCREEN_BUFFER_INFO info{};
  if (!GetConsoleScreenBufferInfo(GetStdHandle(STD_ERROR_HANDLE), &info)) return usual_width;
  const int width = info.srWindow.Right - info.srWindow.Left + 1;
  return width > 0 ? static_cast<std::size_t>(width) : usual_width;
}

#else

std::vector<std::string> command_line_words(int argc, char** argv) {
  return {argv + (argc > 0 ? 1 : 0), argv + argc};
}

void use_utf8_output() {}

bool error_output_is_terminal() {
  return isatty(STDERR_FILENO) == 1;
}

std::size_t error_output_width() {
  winsize size{};
  if (ioctl(STDERR_FILENO, TIOCGWINSZ, &size) != 0 || size.ws_col == 0) return usual_width;
  return size.ws_col;
}

#endif

}  // namespace tallyra::client
