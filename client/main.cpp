#include <iostream>

#include "client/classes.h"
#include "client/client.h"
#include "client/platform/environment.h"
#include "client/platform/terminal.h"

int main(int argc, char** argv) {
  using namespace tallyra::client;
  use_utf8_output();
  make_classes_available();
  Console console{std::cout, std::cerr, error_output_is_terminal(), error_output_width()};
  console.out_width = output_width();
  console.input = &std::cin;
  if (input_is_terminal()) console.answers = &std::cin;
  const ExitStatus status = run_client(command_line_words(argc, argv), console, environment_variable);
  std::cout.flush();
  if (status == exit_done && !std::cout) {
    std::cerr << "tallyra-client: the output could not be written; what was to be done is done\n";
    return exit_failed;
  }
  return status;
}
