#include "client/setup/functions.h"
#include "client/setup/rights_table.h"
#include "client/verbs/all_verbs.h"
#include "client/verbs/context.h"

// Who may do what.
namespace tallyra::client {
namespace {

constexpr std::string_view examples[] = {"rights --db stock.db", "rights ANNA --db stock.db"};

Table with_rights(std::vector<Column> columns) {
  for (const RightName& right : right_names()) columns.push_back({std::string(right.word)});
  return {"rights", "", std::move(columns), {}};
}

void append_flags(std::vector<automation::Value>& row, const RightFlags& flags) {
  for (const bool flag : flags) row.emplace_back(flag ? "yes" : "-");
}

Table stored_rights(VerbContext& context) {
  Table table = with_rights({{"user"}, {"function"}});
  for (const RightsRow& row : RightsTable(context).rows()) {
    table.rows.push_back({row.user, row.function});
    append_flags(table.rows.back(), row.flags);
  }
  return table;
}

// As the classes are told, whatever library answers.
Table answered_rights(VerbContext& context, const std::string& user) {
  const RightsLibrary library(context.session(), user);
  Table table = with_rights({{"function"}, {"of"}});
  for (const FunctionCode& function : function_codes()) {
    table.rows.push_back({std::string(function.code), std::string(function.what)});
    append_flags(table.rows.back(), library.rights(std::string(function.code)));
  }
  return table;
}

ExitStatus run(VerbContext& context) {
  if (!context.words().arguments.empty()) {
    context.print(answered_rights(context, context.argument(0)));
    return exit_done;
  }
  const Table table = stored_rights(context);
  context.print(table);
  if (table.rows.empty())
    context.tell("Nobody may do anything: 'grant USER * all' lets a user do everything.");
  return exit_done;
}

}  // namespace

const Verb rights_verb{
    .name = "rights",
    .arguments = "[USER]",
    .summary = "who may do what",
    .help =
        "Shows the table of rights as it is stored; with USER what that user may do under each function, as\n"
        "the library answers that the classes ask.",
    .options = {},
    .examples = examples,
    .least_arguments = 0,
    .most_arguments = 1,
    .run = run,
};

}  // namespace tallyra::client
