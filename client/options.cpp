#include "client/options.h"

#include <algorithm>
#include <utility>

#include "client/suggestion.h"
#include "client/usage_error.h"

namespace tallyra::client {
namespace {

constexpr Option common[] = {
    {"--db", "DATABASE", "path of an SQLite file, or a whole connection string"},
    {"--user", "NAME", "user the work is done for"},
    {"--language", "CODE", "language of messages and generated words"},
    {"--kind", "KIND", "MSACCESS (also when nothing is said) or MSSQLSERVER: how dates are written"},
    {"--csv", "", "print tables as comma-separated values"},
    {"--json", "", "print tables as JSON"},
    {"--quiet", "", "tell nothing but results and what is wrong"},
    {"--yes", "", "answer every question with yes"},
    {"--config", "FILE", "file with lines such as db=stock.db"},
    {"--help", "", "print what the verb does and exit"},
};

constexpr Option of_the_program[] = {
    {"--version", "", "print the version and exit"},
    {"--list", "", "print the classes with their members and arguments and exit"},
};

bool is_digit(char c) {
  return c >= '0' && c <= '9';
}

bool is_option(std::string_view word) {
  if (word.size() < 2 || word.front() != '-') return false;
  return !is_digit(word[1]) && !(word[1] == '.' && word.size() > 2 && is_digit(word[2]));
}

std::string_view name_of(std::string_view word) {
  const std::string_view name = word.substr(0, word.find('='));
  if (name == "-h") return "--help";
  if (name == "-q") return "--quiet";
  return name == "-y" ? "--yes" : name;
}

const Option* find_option(std::span<const Option> known, std::string_view name) {
  const auto found = std::ranges::find(known, name, &Option::name);
  return found == known.end() ? nullptr : &*found;
}

[[noreturn]] void refuse_option(std::string_view name, std::span<const Option> known) {
  std::vector<std::string_view> names;
  for (const Option& option : known) names.push_back(option.name);
  throw UsageError("there is no option " + std::string(name) + did_you_mean(name, names));
}

// The value of an option: behind its '=' or in the next word, which is passed over then.
std::string value_of(std::span<const std::string> words, std::size_t& at, const Option& option) {
  const std::string& word = words[at];
  const std::size_t equals = word.find('=');
  if (option.value.empty()) {
    if (equals != std::string::npos) throw UsageError(std::string(option.name) + " takes no value");
    return {};
  }
  if (equals != std::string::npos) return word.substr(equals + 1);
  if (++at == words.size())
    throw UsageError(std::string(option.name) + " needs a value: " + std::string(option.value));
  return words[at];
}

}  // namespace

std::span<const Option> common_options() {
  return common;
}

std::span<const Option> program_options() {
  return of_the_program;
}

std::optional<std::string> Words::value(std::string_view option) const {
  const auto found = options.find(option);
  if (found == options.end()) return std::nullopt;
  return found->second.back();
}

std::vector<std::string> Words::values(std::string_view option) const {
  std::vector<std::string> result;
  const auto found = options.find(option);
  if (found == options.end()) return result;
  for (std::string_view word : found->second) {
    while (!word.empty()) {
      const std::size_t comma = std::min(word.find(','), word.size());
      if (comma != 0) result.emplace_back(word.substr(0, comma));
      word.remove_prefix(std::min(comma + 1, word.size()));
    }
  }
  return result;
}

Words read_words(std::span<const std::string> words, std::span<const Option> known) {
  Words result;
  bool options_ended = false;
  for (std::size_t at = 0; at < words.size(); ++at) {
    if (!options_ended && words[at] == "--") {
      options_ended = true;
    } else if (options_ended || !is_option(words[at])) {
      result.arguments.push_back(words[at]);
    } else {
      const std::string_view name = name_of(words[at]);
      const Option* option = find_option(known, name);
      if (!option) refuse_option(name, known);
      auto& values = result.options[std::string(option->name)];
      values.push_back(value_of(words, at, *option));
    }
  }
  return result;
}

std::size_t first_plain_word(std::span<const std::string> words) {
  for (std::size_t at = 0; at < words.size(); ++at) {
    if (words[at] == "--") return std::min(at + 1, words.size());
    if (!is_option(words[at])) return at;
    const Option* option = find_option(common, name_of(words[at]));
    if (option && !option->value.empty() && words[at].find('=') == std::string::npos) ++at;
  }
  return words.size();
}

}  // namespace tallyra::client
