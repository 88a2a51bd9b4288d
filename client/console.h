#pragma once

#include <chrono>
#include <cstddef>
#include <iosfwd>

namespace tallyra::client {

// Where the client writes, and from where it gets answers.
struct Console {
  std::ostream& out;
  std::ostream& error;
  bool error_is_terminal = false;
  std::size_t error_width = 80;
  // How often the progress of a long call is looked at.
  std::chrono::milliseconds progress_interval{500};
  // Columns of the terminal behind `out`, to which tables are fitted; 0 when there is none.
  std::size_t out_width = 0;
  // From where questions are answered; none when nobody is there to answer.
  std::istream* answers = nullptr;
  // What is handed to the program to work on; none when there is nothing.
  std::istream* input = nullptr;
};

}  // namespace tallyra::client
