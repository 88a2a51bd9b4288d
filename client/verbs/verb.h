#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "client/exit_status.h"
#include "client/options.h"

namespace tallyra::client {

class VerbContext;

// What a person can ask for by one word, or two ("count sheet"). Help, completion, manual and suggestions
// come from these entries; whoever adds one writes it where the verb is and puts it into the table of
// verbs.cpp.
struct Verb {
  std::string_view name;
  std::string_view arguments;  // as one writes them: "DATE", "[USER]", "FILE..."
  std::string_view summary;    // one line, for the list of verbs
  std::string_view help;       // what it does in full, in lines of at most 100 characters
  std::span<const Option> options;
  std::span<const std::string_view> examples;  // without the name of the program
  std::size_t least_arguments = 0;
  std::size_t most_arguments = 0;
  // Results go to the context; throws UsageError, Refusal and automation::Error.
  ExitStatus (*run)(VerbContext&) = nullptr;
  bool makes_database = false;  // the file of the database may be missing
};

// All of them, in the order of the help.
std::span<const Verb* const> verbs();

struct FoundVerb {
  const Verb* verb = nullptr;
  std::size_t words = 0;  // how many words its name takes
};

// The verb that the words begin with. Case does not count. Throws UsageError for the first word of verbs of
// two with another second one.
FoundVerb find_verb(std::span<const std::string> words);

// What --help says of it.
std::string verb_help(const Verb& verb);
// The list of verbs for the help of the program, or of those of two words that begin with this one; nothing
// when none does.
std::string verbs_text(std::string_view first = {});
// "init, upgrade, ..."
std::string verb_names();

}  // namespace tallyra::client
