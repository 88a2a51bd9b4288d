#include <algorithm>
#include <ostream>

#include "client/display_width.h"
#include "client/setup/examination/examination.h"
#include "client/verbs/all_verbs.h"
#include "client/verbs/context.h"
#include "client/version.h"

// Whether everything is there that the classes need.
namespace tallyra::client {
namespace {

constexpr std::string_view examples[] = {"doctor --db stock.db --user ADMIN", "doctor --db stock.db --json"};

const char* word_of(Health health) {
  switch (health) {
    case Health::good: return "good";
    case Health::doubtful: return "doubtful";
    case Health::bad: break;
  }
  return "BAD";
}

std::size_t count(const Observations& seen, Health health) {
  return static_cast<std::size_t>(std::ranges::count(seen, health, &Observation::health));
}

std::string advice_of(const Observation& observation) {
  return observation.advice + (observation.command.empty() ? "" : ": " + observation.command);
}

// Advice is too long for a column of its own on a terminal: there it follows the table.
Table table_of(const Observations& seen, OutputFormat format) {
  const bool for_programs = format != OutputFormat::text;
  Table table{"doctor", "", {{"state"}, {"what"}, {"found"}}, {}, true};
  if (for_programs) table.columns.push_back({"to do"});
  for (const Observation& observation : seen) {
    table.rows.push_back({word_of(observation.health), observation.what, observation.found});
    if (for_programs) table.rows.back().emplace_back(advice_of(observation));
  }
  return table;
}

void tell_what_to_do(const VerbContext& context, const Observations& seen) {
  constexpr std::string_view indent = "    ";
  const Console& console = context.console();
  const std::size_t room =
      console.out_width > 2 * indent.size() ? console.out_width - indent.size() : std::string::npos;
  for (const Observation& observation : seen) {
    if (observation.advice.empty()) continue;
    console.out << "\n" << observation.what << ":\n";
    for (const std::string& line : printable_lines(wrapped(observation.advice, room)))
      console.out << indent << line << "\n";
    // Whole, however long: it is to be pasted.
    if (!observation.command.empty()) console.out << indent << observation.command << "\n";
  }
}

ExitStatus run(VerbContext& context) {
  Observations seen{{Health::good, "program", std::string(version_text())}};
  while (!seen.front().found.empty() && seen.front().found.back() == '\n') seen.front().found.pop_back();
  for (Observation& observation : examine(context)) seen.push_back(std::move(observation));
  context.print(table_of(seen, context.format()));
  if (context.format() == OutputFormat::text) tell_what_to_do(context, seen);
  const std::size_t bad = count(seen, Health::bad);
  const std::size_t doubtful = count(seen, Health::doubtful);
  context.tell(bad == 0 && doubtful == 0
                   ? "All is well."
                   : std::to_string(bad) + " bad, " + std::to_string(doubtful) + " doubtful.");
  return bad == 0 ? exit_done : exit_failed;
}

}  // namespace

const Verb doctor_verb{
    .name = "doctor",
    .arguments = "",
    .summary = "whether everything is there that the classes need",
    .help =
        "Looks at the libraries and which of them answers, at the database with its engine, driver and\n"
        "settings, at every table and column that the classes name, at the rights of the user, at\n"
        "transactions, the counters of document numbers and the clock; a line each, with what to do about\n"
        "what is wrong. Nothing is changed, and no number is used up.\n"
        "It ends with 1 when something is bad.",
    .options = {},
    .examples = examples,
    .least_arguments = 0,
    .most_arguments = 0,
    .run = run,
};

}  // namespace tallyra::client
