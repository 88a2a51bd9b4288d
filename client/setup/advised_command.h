#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "client/session.h"

namespace tallyra::client {

// A word as a shell takes it: in quotes where it needs them, those of cmd on Windows.
std::string shell_word(std::string_view word);

// A command line of this program that can be pasted into a shell: "tallyra-client" with the words, each as a
// shell takes it, and --db with its value where the command line of this session has named the database so. A
// password in it is shown as "***".
std::string advised_command(const std::vector<std::string>& words, const Session& session);

}  // namespace tallyra::client
