#pragma once

#include <string>
#include <string_view>

namespace tallyra::client {

// The parts of --help around the list of options.
inline constexpr std::string_view help_summary =
    "Looks after the stock of a company: carries out a verb, or creates a stock-management class by its "
    "ProgID, "
    "hands it the session, calls one member and prints what came of it.";
inline constexpr std::string_view help_usage =
    "Usage:\n"
    "  tallyra-client VERB [OPTIONS] [ARGUMENT]...\n"
    "  tallyra-client [OPTIONS] [--] CLASS MEMBER [ARGUMENT | COLUMN=value | @]...\n";
std::string help_details();

}  // namespace tallyra::client
