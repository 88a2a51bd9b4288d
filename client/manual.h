#pragma once

#include <string>

namespace tallyra::client {

// The manual page of the program in the language of man, made of the table of verbs.
std::string manual_page();

// The completion of its command lines for bash, made of the same table.
std::string bash_completion();

}  // namespace tallyra::client
