#include "client/verbs/all_verbs.h"

namespace tallyra::client {
namespace {

// In the order in which the help shows them: one a line.
const Verb* const table[] = {
    &log_verb,
    &call_verb,
    &help_verb,
};

}  // namespace

std::span<const Verb* const> verbs() {
  return table;
}

}  // namespace tallyra::client
