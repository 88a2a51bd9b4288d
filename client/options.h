#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tallyra::client {

// An option of a verb as help, completion and the reading of words know it.
struct Option {
  std::string_view name;   // "--from"
  std::string_view value;  // what stands for its value in the help, "DATE"; empty for one without
  std::string_view help;
};

// Those that every verb takes.
std::span<const Option> common_options();

// Those that stand without a verb.
std::span<const Option> program_options();

// What the words of a verb come to.
class Words {
 public:
  std::vector<std::string> arguments;
  // By name; one without a value is there with an empty text.
  std::map<std::string, std::vector<std::string>, std::less<>> options;

  bool has(std::string_view option) const { return options.find(option) != options.end(); }
  // The value of an option that was given; the last one, if it was given more than once.
  std::optional<std::string> value(std::string_view option) const;
  // All values of an option, those written with commas in one word one by one.
  std::vector<std::string> values(std::string_view option) const;
};

// Options stand anywhere before "--", as "--name value" or "--name=value"; all other words are arguments,
// negative numbers among them. Throws UsageError for an option that is none of `known`, with the one that it
// resembles.
Words read_words(std::span<const std::string> words, std::span<const Option> known);

// The place of the first word that is neither an option nor the value of a common one; the number of words
// when there is none.
std::size_t first_plain_word(std::span<const std::string> words);

}  // namespace tallyra::client
