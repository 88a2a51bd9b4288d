#include <windows.h>
// After what it stands on.
#include <shellapi.h>

#include "client/platform/terminal.h"
#include "client/platform/wide_text_windows.h"

namespace tallyra::client {
namespace {

bool is_console(DWORD which) {
  DWORD mode = 0;
  return GetConsoleMode(GetStdHandle(which), &mode) != 0;
}

// 0 when no console tells.
std::size_t columns_of(DWORD which) {
  CONSOLE_SCREEN_BUFFER_INFO info{};
  if (!GetConsoleScreenBufferInfo(GetStdHandle(which), &info)) return 0;
  const int width = info.srWindow.Right - info.srWindow.Left + 1;
  return width > 0 ? static_cast<std::size_t>(width) : 0;
}

}  // namespace

// The narrow arguments have already lost what the system's code page cannot spell.
std::vector<std::string> command_line_words(int argc, char** argv) {
  int count = 0;
  wchar_t** const wide = CommandLineToArgvW(GetCommandLineW(), &count);
  if (!wide) return {argv + (argc > 0 ? 1 : 0), argv + argc};
  std::vector<std::string> words;
  for (int i = 1; i < count; ++i) words.push_back(utf8_text(wide[i]));
  LocalFree(wide);
  return words;
}

void use_utf8_output() {
  SetConsoleOutputCP(CP_UTF8);
}

bool input_is_terminal() {
  return is_console(STD_INPUT_HANDLE);
}

bool error_output_is_terminal() {
  return is_console(STD_ERROR_HANDLE);
}

std::size_t error_output_width() {
  constexpr std::size_t usual_width = 80;
  const std::size_t columns = columns_of(STD_ERROR_HANDLE);
  return columns == 0 ? usual_width : columns;
}

std::size_t output_width() {
  return columns_of(STD_OUTPUT_HANDLE);
}

}  // namespace tallyra::client
