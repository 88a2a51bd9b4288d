#pragma once

#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "client/call.h"
#include "client/configuration.h"
#include "client/session.h"

namespace tallyra::client {

// Asks for a text instead of a call: --help, --list.
struct TextRequest {
  std::string text;
};

struct CallRequest {
  Call call;
  Session session;
  bool json = false;
  // Whether to show the progress of a long close; when nothing is said, a terminal decides.
  std::optional<bool> progress;
};

// Reads the words of a raw call. Options stand anywhere before "--"; all other words are class, member and
// arguments in their order, negative numbers among them. What they leave open is taken from the environment
// and the file that it names. Throws UsageError.
std::variant<TextRequest, CallRequest> parse_command_line(const std::vector<std::string>& words,
                                                          const Environment& environment);

// What --help says of the whole program.
std::string program_help();

}  // namespace tallyra::client
