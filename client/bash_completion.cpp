#include <vector>

#include "client/catalogue.h"
#include "client/listing/listed_class.h"
#include "client/manual.h"
#include "client/setup/functions.h"
#include "client/verbs/verb.h"

namespace tallyra::client {
namespace {

// Lines stay as short as those of any script.
void append_word(std::string& words, std::string_view word) {
  constexpr std::size_t line_width = 80;
  const std::size_t line_begin = words.rfind('\n') + 1;
  if (!words.empty()) words += words.size() - line_begin > line_width ? "\n      " : " ";
  words += word;
}

std::string names_of(const auto& entries) {
  std::string names;
  for (const auto& entry : entries) append_word(names, entry.name);
  return names;
}

std::string function_words() {
  std::string words;
  for (const FunctionCode& function : function_codes())
    if (function.code != "*") append_word(words, function.code);
  return words;
}

std::string right_words() {
  std::string words = "all";
  for (const RightName& right : right_names()) append_word(words, right.word);
  return words;
}

// The first words that a command can begin with, each once.
std::string first_words() {
  std::string words;
  std::string_view last;
  for (const Verb* verb : verbs()) {
    const std::string_view first = verb->name.substr(0, verb->name.find(' '));
    if (first != last) append_word(words, first);
    last = first;
  }
  for (const auto& entry : catalogue()) append_word(words, entry.name);
  return words;
}

std::string member_cases() {
  std::string text;
  for (const auto& entry : catalogue()) {
    text.append("    ").append(entry.name).append(") words='");
    std::string members;
    for (const auto& member : entry.members) append_word(members, member.name);
    text.append(members) += "' ;;\n";
  }
  return text;
}

// Lines of a case over the first two words: the options of each verb.
std::string option_cases() {
  std::string text;
  for (const Verb* verb : verbs()) {
    if (verb->options.empty()) continue;
    const bool of_two = verb->name.find(' ') != std::string_view::npos;
    text.append("    '").append(verb->name).append(of_two ? "')" : " '*)");
    text.append(" words='").append(names_of(verb->options)) += "' ;;\n";
  }
  return text;
}

std::string second_word_cases() {
  std::string text;
  std::string open;
  const auto close = [&] { text += open.empty() ? "" : "' ;;\n"; };
  for (const Verb* verb : verbs()) {
    const std::size_t blank = verb->name.find(' ');
    if (blank == std::string_view::npos) continue;
    const std::string first(verb->name.substr(0, blank));
    if (first == open) {
      text.append(" ").append(verb->name.substr(blank + 1));
      continue;
    }
    close();
    open = first;
    text.append("    ").append(first).append(") words='").append(verb->name.substr(blank + 1));
  }
  close();
  text.append("    list) words='").append(names_of(listed_classes())).append("' ;;\n");
  text.append("    call) words='").append(names_of(catalogue())).append("' ;;\n");
  text.append("    help) words='").append(first_words()).append("' ;;\n");
  return text + member_cases();
}

// Options that are followed by a value, which is no verb.
std::string valued_options() {
  std::string names;
  for (const Option& option : common_options())
    if (!option.value.empty()) names.append(names.empty() ? "" : " | ").append(option.name);
  return names;
}

}  // namespace

std::string bash_completion() {
  return R"(# Completion of tallyra-client for bash. To be sourced.
_tallyra_client() {
  local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD-1]} first= second= words= i plain=0
  COMPREPLY=()
  for ((i = 1; i < COMP_CWORD; ++i)); do
    case ${COMP_WORDS[i]} in
    )" + valued_options() +
         R"() ((++i)) ;;
    -*) ;;
    *) ((++plain))
      if [ -z "$first" ]; then first=${COMP_WORDS[i]}; elif [ -z "$second" ]; then second=${COMP_WORDS[i]}; fi ;;
    esac
  done
  # What follows "call CLASS" is what follows the class alone.
  if [[ $first == call && $plain == 2 ]]; then first=$second second=; fi
  case $previous in --db | --config | --output | import | batch)
    COMPREPLY=($(compgen -f -- "$current"))
    return ;;
  esac
  if [[ $current == -* ]]; then
    case "$first $second" in
)" + option_cases() +
         "    esac\n    [ -n \"$first\" ] || words='" + names_of(program_options()) + "'\n    words+=' " +
         names_of(common_options()) + R"('
  elif [ -z "$first" ]; then
    words=')" +
         first_words() + R"('
  elif [ -z "$second" ]; then
    case $first in
)" + second_word_cases() +
         R"(    esac
  elif [[ $first == grant || $first == revoke ]]; then
    if [ $plain = 2 ]; then words=')" +
         function_words() + R"('; else words=')" + right_words() + R"('; fi
  fi
  COMPREPLY=($(compgen -W "$words" -- "$current"))
}
complete -o default -F _tallyra_client tallyra-client
)";
}

}  // namespace tallyra::client
