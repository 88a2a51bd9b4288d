#include <ostream>

#include "client/catalogue.h"
#include "client/command_line.h"
#include "client/manual.h"
#include "client/suggestion.h"
#include "client/usage_error.h"
#include "client/verbs/all_verbs.h"
#include "client/verbs/context.h"

namespace tallyra::client {
namespace {

constexpr Option options[] = {
    {"--man", "", "print the manual page, for man"},
    {"--completion", "", "print the completion for bash"},
};
constexpr std::string_view examples[] = {"help close", "help CStockClose", "help --completion"};

std::string class_help(const ClassEntry& entry) {
  std::string text = "Tallyra." + std::string(entry.name) + ": " + std::string(entry.purpose) + "\n";
  for (const auto& member : entry.members)
    text.append("  ").append(member.name).append(" ").append(member.arguments).append("\n");
  return text;
}

std::string help_on(const std::vector<std::string>& words) {
  if (words.empty()) return program_help();
  if (words.size() == 1)
    if (std::string group = verbs_text(words[0]); !group.empty()) return group;
  if (const auto found = find_verb(words); found.verb) return verb_help(*found.verb);
  if (const ClassEntry* entry = find_class(words[0])) return class_help(*entry);
  throw UsageError("there is no verb or class '" + words[0] + "'" + resembling_word(words[0]));
}

ExitStatus run(VerbContext& context) {
  std::ostream& out = context.console().out;
  if (context.has("--man"))
    out << manual_page();
  else if (context.has("--completion"))
    out << bash_completion();
  else
    out << help_on(context.words().arguments);
  return exit_done;
}

}  // namespace

const Verb help_verb{
    .name = "help",
    .arguments = "[VERB | CLASS]",
    .summary = "what a verb does, or the members of a class",
    .help =
        "Tells of a verb what it does and which options it has, of a class its members and their arguments.",
    .options = options,
    .examples = examples,
    .least_arguments = 0,
    .most_arguments = 2,
    .run = run,
};

}  // namespace tallyra::client
