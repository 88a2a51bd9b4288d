#include "client/verbs/verb.h"

#include <algorithm>

#include "automation/folded_name.h"
#include "client/output/text_table.h"
#include "client/suggestion.h"
#include "client/usage_error.h"

namespace tallyra::client {
namespace {

void append_options(std::string& text, std::string_view heading, std::span<const Option> options) {
  if (options.empty()) return;
  text.append("\n").append(heading).append("\n");
  TextTable lines;
  for (const Option& option : options) {
    std::string name = "  " + std::string(option.name);
    if (!option.value.empty()) name.append(" ").append(option.value);
    lines.add_row({name, option.help});
  }
  lines.append_to(text);
}

bool begins_with_word(std::string_view name, std::string_view word) {
  const std::size_t blank = name.find(' ');
  return blank != std::string_view::npos && automation::equals_folded(name.substr(0, blank), word);
}

// The verbs of two words that begin with this one.
std::vector<std::string_view> second_words(std::string_view first) {
  std::vector<std::string_view> result;
  for (const Verb* verb : verbs())
    if (begins_with_word(verb->name, first)) result.push_back(verb->name.substr(first.size() + 1));
  return result;
}

const Verb* verb_named(std::string_view name) {
  const auto all = verbs();
  const auto found = std::ranges::find_if(
      all, [&](const Verb* verb) { return automation::equals_folded(verb->name, name); });
  return found == all.end() ? nullptr : *found;
}

}  // namespace

FoundVerb find_verb(std::span<const std::string> words) {
  if (words.empty()) return {};
  const auto seconds = second_words(words[0]);
  if (words.size() > 1)
    if (const Verb* verb = verb_named(words[0] + " " + words[1])) return {verb, 2};
  if (const Verb* verb = verb_named(words[0])) return {verb, 1};
  if (seconds.empty()) return {};
  std::string text = words[0] + " is followed by one of:";
  for (const auto second : seconds) text.append(" ").append(second);
  throw UsageError(words.size() > 1 ? text + did_you_mean(words[1], seconds) : text);
}

std::string verb_help(const Verb& verb) {
  std::string text = "Usage:\n  tallyra-client " + std::string(verb.name) + " [OPTIONS]";
  if (!verb.arguments.empty()) text.append(" ").append(verb.arguments);
  text.append("\n\n").append(verb.help).append("\n");
  append_options(text, "Options:", verb.options);
  append_options(text, "Options of every verb:", common_options());
  if (!verb.examples.empty()) text += "\nExamples:\n";
  for (const auto example : verb.examples) text.append("  tallyra-client ").append(example).append("\n");
  return text;
}

std::string verb_names() {
  std::string text;
  for (const Verb* verb : verbs()) text.append(text.empty() ? "" : ", ").append(verb->name);
  return text;
}

std::string verbs_text(std::string_view first) {
  TextTable lines;
  for (const Verb* verb : verbs()) {
    if (!first.empty() && !begins_with_word(verb->name, first)) continue;
    std::string usage = "  " + std::string(verb->name);
    if (!verb->arguments.empty()) usage.append(" ").append(verb->arguments);
    lines.add_row({usage, verb->summary});
  }
  std::string text;
  lines.append_to(text);
  return text;
}

}  // namespace tallyra::client
