#include <algorithm>

#include "client/database/journal.h"
#include "client/database/own_tables.h"
#include "client/setup/functions.h"
#include "client/setup/granting.h"
#include "client/setup/rights_table.h"
#include "client/verbs/all_verbs.h"
#include "client/verbs/context.h"
#include "client/wait_notice.h"

// Who may do what: giving and taking rights.
namespace tallyra::client {
namespace {

constexpr std::string_view grant_examples[] = {
    "grant ANNA '*' all --db stock.db",
    "grant ANNA CStockClose insert approve --db stock.db",
};
constexpr std::string_view revoke_examples[] = {
    "revoke ANNA CStockClose approve --db stock.db",
    "revoke ANNA '*' all --db stock.db",
};

constexpr std::size_t first_right = 2;
constexpr std::size_t most_words = 20;

using Change = RightFlags (*)(VerbContext&, const std::string&, const std::string&,
                              const std::vector<std::size_t>&);

std::string may_now(const RightFlags& flags) {
  const bool none = std::ranges::find(flags, true) == flags.end();
  return none ? "may now do nothing" : "may now " + flags_text(flags);
}

ExitStatus change(VerbContext& context, const char* verb, Change change_rights) {
  const std::string user = context.argument(0);
  require_user_name(user);
  const std::string function = function_code(context.argument(1));
  const auto words = std::span(context.words().arguments).subspan(first_right);
  const auto places = right_places(words);
  const RightFlags now = [&] {
    context.reader();
    const WaitNotice notice(context.console());
    RightFlags flags = change_rights(context, user, function, places);
    if (has_own_tables(context.reader()))
      journal(context, {verb, user + " " + function, "done", may_now(flags)});
    return flags;
  }();
  context.tell(user + " " + may_now(now) + " under " + function + ".");
  if (function == "*")
    for (const std::string& own : functions_of_his_own(context, user))
      context.tell(std::string("For ").append(own).append(" the row of its own counts: 'rights ") + user +
                   "' shows it.");
  return exit_done;
}

ExitStatus run_grant(VerbContext& context) {
  return change(context, "grant", grant_rights);
}

ExitStatus run_revoke(VerbContext& context) {
  return change(context, "revoke", revoke_rights);
}

}  // namespace

const Verb grant_verb{
    .name = "grant",
    .arguments = "USER FUNCTION RIGHT...",
    .summary = "lets a user do something",
    .help =
        "Gives USER rights in the table of this database. RIGHT is insert, update, delete, approve,\n"
        "unapprove, cancel, finish, owner or all. FUNCTION is '*' for all functions, a class that asks for\n"
        "one (CStockClose, CCheckHead, CRevAddr, ...), or a code: the type of a document such as\n"
        "STK010POREV, STK026CHECK for stocktakings, STK027CLOSE for month closes; 'rights USER' names them\n"
        "all. Where a user has a row for a function, that row alone counts: a new one begins with what the\n"
        "user may do there already. USER '*' is everybody without a row.",
    .options = {},
    .examples = grant_examples,
    .least_arguments = first_right + 1,
    .most_arguments = most_words,
    .run = run_grant,
};

const Verb revoke_verb{
    .name = "revoke",
    .arguments = "USER FUNCTION RIGHT...",
    .summary = "no longer lets a user do something",
    .help =
        "Takes rights away from USER; 'help grant' tells of users, functions and rights. What '*' grants is\n"
        "taken away for one FUNCTION by a row of its own.",
    .options = {},
    .examples = revoke_examples,
    .least_arguments = first_right + 1,
    .most_arguments = most_words,
    .run = run_revoke,
};

}  // namespace tallyra::client
