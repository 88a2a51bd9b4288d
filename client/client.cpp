#include "client/client.h"

#include <algorithm>
#include <exception>
#include <optional>
#include <ostream>

#include "automation/apartment.h"
#include "automation/error.h"
#include "automation/folded_name.h"
#include "client/catalogue.h"
#include "client/configuration.h"
#include "client/display_width.h"
#include "client/failure.h"
#include "client/raw_call.h"
#include "client/refusal.h"
#include "client/suggestion.h"
#include "client/usage_error.h"
#include "client/verbs/all_verbs.h"
#include "client/verbs/context.h"

namespace tallyra::client {
namespace {

Configuration said_by(const Words& words) {
  const auto setting = [&](std::string_view option) {
    const auto value = words.value(option);
    return value ? std::optional(Setting{*value, std::string(option)}) : std::nullopt;
  };
  return {setting("--db"), setting("--user"), setting("--language"), setting("--kind")};
}

void require_arguments(const Verb& verb, std::size_t count) {
  if (count >= verb.least_arguments && count <= verb.most_arguments) return;
  const std::string usage = verb.arguments.empty() ? std::string("nothing") : std::string(verb.arguments);
  throw UsageError(std::string(verb.name) + " takes " + usage + "; " + std::to_string(count) +
                   (count == 1 ? " argument was" : " arguments were") + " given");
}

// `words` are those without the name of the verb.
ExitStatus run_verb(const Verb& verb, const std::vector<std::string>& words, const Console& console,
                    const Environment& environment) {
  std::vector<Option> known(verb.options.begin(), verb.options.end());
  known.insert(known.end(), common_options().begin(), common_options().end());
  Words read = read_words(words, known);
  if (read.has("--help")) {
    console.out << verb_help(verb);
    return exit_done;
  }
  require_arguments(verb, read.arguments.size());
  const automation::Apartment apartment;
  const Configuration configured = read_configuration(read.value("--config"), environment);
  const auto missing = verb.makes_database ? MissingFile::allowed : MissingFile::refused;
  Session session = session_of(said_by(read), configured, missing);
  VerbContext context(std::move(read), std::move(session), console);
  return verb.run(context);
}

// "count --help": the verbs that begin so; nothing for other words.
std::string asked_for_group(std::span<const std::string> words) {
  if (words.size() != 2 || (words[1] != "--help" && words[1] != "-h")) return {};
  return verbs_text(words[0]);
}

ExitStatus run_words(const std::vector<std::string>& words, const Console& console,
                     const Environment& environment) {
  const std::size_t first = first_plain_word(words);
  if (const std::string group = asked_for_group(std::span(words).subspan(first)); !group.empty()) {
    console.out << group;
    return exit_done;
  }
  const auto found = find_verb(std::span(words).subspan(first));
  if (!found.verb) return run_raw_call(words, console, environment);
  std::vector<std::string> others = words;
  const auto name = others.begin() + static_cast<std::ptrdiff_t>(first);
  others.erase(name, name + static_cast<std::ptrdiff_t>(found.words));
  if (found.verb == &call_verb) return run_raw_call(others, console, environment);
  return run_verb(*found.verb, others, console, environment);
}

bool begins_a_verb(std::string_view word) {
  return std::ranges::any_of(verbs(), [&](const Verb* verb) {
    return automation::equals_folded(verb->name.substr(0, verb->name.find(' ')), word);
  });
}

// What is said of a first word that is neither verb nor class but resembles one: whatever else is wrong with
// the words comes of that.
std::optional<std::string> misspelt_word(const std::vector<std::string>& words) {
  const std::size_t first = first_plain_word(words);
  if (first == words.size() || words[first].find('.') != std::string::npos) return std::nullopt;
  if (find_class(words[first]) || begins_a_verb(words[first])) return std::nullopt;
  const std::string meant = resembling_word(words[first]);
  if (meant.empty()) return std::nullopt;
  return "there is no verb or class '" + words[first] + "'" + meant;
}

void tell_usage(const UsageError& error, const std::vector<std::string>& words, const Console& console) {
  console.error << "tallyra-client: " << printable(misspelt_word(words).value_or(error.what()))
                << "\nTry 'tallyra-client --help'.\n";
}

}  // namespace

ExitStatus run_client(const std::vector<std::string>& words, const Console& console,
                      const Environment& environment) {
  try {
    return run_words(words, console, environment);
  } catch (const UsageError& error) {
    tell_usage(error, words, console);
    return exit_wrong_usage;
  } catch (const Refusal& refusal) {
    console.error << "tallyra-client: " << printable(refusal.what()) << "\n";
    return refusal.status();
  } catch (const automation::Error& error) {
    tell_failure(error, console);
  } catch (const std::exception& error) {
    console.error << "tallyra-client: " << error.what() << "\n";
  }
  return exit_failed;
}

}  // namespace tallyra::client
