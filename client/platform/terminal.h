#pragma once

#include <cstddef>
#include <string>
#include <vector>

// How the client meets the terminal of the system that it runs on.
namespace tallyra::client {

// The words behind the program's name, in UTF-8.
std::vector<std::string> command_line_words(int argc, char** argv);

// Makes the console show UTF-8 where it does not by itself.
void use_utf8_output();

bool input_is_terminal();
bool error_output_is_terminal();

// Columns of the terminal behind the error output, 80 when that is not known.
std::size_t error_output_width();
// Columns of the terminal behind the output, 0 when there is none.
std::size_t output_width();

}  // namespace tallyra::client
