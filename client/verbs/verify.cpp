#include "client/month_end/sums.h"
#include "client/month_end/verification.h"
#include "client/refusal.h"
#include "client/verbs/all_verbs.h"
#include "client/verbs/context.h"

// Whether a close is what its movements come to.
namespace tallyra::client {
namespace {

constexpr std::string_view examples[] = {
    "verify 2024/01/31 --db stock.db",
    "verify 2024/01/31 --db stock.db --csv",
};

Table differences_table(const Verification& verification) {
  Table table{"differences",
              "",
              {{"what"},
               {"department"},
               {"document"},
               {"part"},
               number_column("written"),
               number_column("expected"),
               number_column("difference")},
              {}};
  for (const Difference& difference : verification.differences) {
    const bool of_a_line = !difference.part.empty();
    const auto number = [&](double value) {
      return of_a_line ? automation::Value(value) : automation::Value();
    };
    table.rows.push_back({word_of(difference.kind), difference.department, difference.document,
                          difference.part, number(difference.written), number(difference.expected),
                          number(difference.excess())});
  }
  return table;
}

ExitStatus run(VerbContext& context) {
  const automation::Date date = date_of(context.argument(0));
  const auto records = close_records(context.reader());
  const CloseRecord* record = find_record(records, date);
  if (!record)
    throw Refusal("there is no close of " + day_text(date) + " to verify; 'status' shows those there are");
  const Verification verification = verify_close(context.reader(), *record, period_of(records, date));
  if (!verification.differences.empty() || context.format() != OutputFormat::text)
    context.print(differences_table(verification));
  const std::string size = std::to_string(verification.documents) + " documents with " +
                           std::to_string(verification.lines) + " lines";
  if (verification.differences.empty())
    context.tell("The close of " + day_text(date) + " is right: " + size +
                 " are what the movements come to.");
  else if (verification.sound())
    context.tell("The close of " + day_text(date) + " was right: " + size +
                 "; all that differs was entered after it. Reopen and close again to take it in.");
  else
    context.warn("the close of " + day_text(date) +
                 " is wrong: " + std::to_string(verification.differences.size()) + " differences in " + size +
                 "; reopen and close again to mend it");
  return verification.sound() ? exit_done : exit_failed;
}

}  // namespace

const Verb verify_verb{
    .name = "verify",
    .arguments = "DATE",
    .summary = "whether a close is what its movements come to",
    .help =
        "Recomputes every line of every document of the close of DATE from the movements of its period, and "
        "shows\n"
        "the lines that differ in the first 12 digits, are missing, doubled or too many, and departments "
        "with a\n"
        "second document. What was entered after the close is told as such. It ends with 1 when something "
        "else\n"
        "differs. Unit costs are not recomputed.",
    .options = {},
    .examples = examples,
    .least_arguments = 1,
    .most_arguments = 1,
    .run = run,
};

}  // namespace tallyra::client
