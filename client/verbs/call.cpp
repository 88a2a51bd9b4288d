#include "client/verbs/all_verbs.h"

namespace tallyra::client {
namespace {

constexpr std::string_view examples[] = {
    "call CRevAddr Read A1 --db stock.db",
    "CRevAddr Read A1 --db stock.db",
};

}  // namespace

// Has nothing to run: the words behind it are those of a raw call, which has a command line of its own.
const Verb call_verb{
    .name = "call",
    .arguments = "CLASS MEMBER [ARGUMENT | COLUMN=value | @]...",
    .summary = "call a member of a class; the word call can be left out",
    .help =
        "Creates a class by its ProgID, hands it the session, calls one member and prints what came of it.\n"
        "'tallyra-client --help' tells how arguments are written, 'tallyra-client --list' what can be "
        "called.",
    .options = {},
    .examples = examples,
};

}  // namespace tallyra::client
