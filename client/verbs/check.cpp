#include "client/month_end/check.h"

#include <ostream>

#include "client/verbs/all_verbs.h"
#include "client/verbs/context.h"

// Everything that is wrong with a month close, before it is run.
namespace tallyra::client {
namespace {

constexpr std::string_view examples[] = {
    "check 2024/01/31 --db stock.db",
    "check 2024/01/31 --db stock.db --json",
};

ExitStatus run(VerbContext& context) {
  const automation::Date date = date_of(context.argument(0));
  const CheckResult result = check_close(context.reader(), date);
  if (result.entries.empty()) context.tell("Nothing is wrong with a close of " + day_text(date) + ".");
  if (context.format() == OutputFormat::text)
    context.console().out << check_text(result);
  else
    context.print(check_tables(result));
  return result.errors_beside({}).empty() ? exit_done : exit_failed;
}

}  // namespace

const Verb check_verb{
    .name = "check",
    .arguments = "DATE",
    .summary = "what is wrong with a month close, before it is run",
    .help =
        "Looks for everything that would make a close of DATE wrong or stop it, and changes nothing. All "
        "findings\n"
        "are shown at once, with how many there are of each and the first of them. It ends with 1 when there "
        "is\n"
        "an error; warnings alone end with 0.",
    .options = {},
    .examples = examples,
    .least_arguments = 1,
    .most_arguments = 1,
    .run = run,
};

}  // namespace tallyra::client
