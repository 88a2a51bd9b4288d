#include <iostream>

#include "client/classes.h"
#include "client/client.h"
#include "client/terminal.h"

int main(int argc, char** argv) {
  using namespace tallyra::client;
  use_utf8_output();
  make_classes_available();
  const Console console{std::cout, std::cerr, error_output_is_terminal(), error_output_width()};
  const ExitStatus status = run_client(command_line_words(argc, argv), console);
  std::cout.flush();
  if (status == exit_done && !std::cout) return exit_failed;
  return status;
}
