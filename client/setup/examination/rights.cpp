#include "automation/error.h"
#include "client/setup/advised_command.h"
#include "client/setup/examination/examination.h"
#include "client/setup/functions.h"
#include "client/setup/rights_library.h"
#include "client/setup/rights_table.h"
#include "client/setup/trouble.h"

// Whether the user of the session may do anything.
namespace tallyra::client {
namespace {

std::size_t functions_allowed(const RightsLibrary& library) {
  std::size_t allowed = 0;
  for (const FunctionCode& function : function_codes())
    for (const bool flag : library.rights(std::string(function.code)))
      if (flag) {
        ++allowed;
        break;
      }
  return allowed;
}

Observation look_at(VerbContext& context) {
  const std::string user = context.user();
  const RightsLibrary library(context.session(), user);
  const std::size_t allowed = functions_allowed(library);
  if (allowed != 0)
    return {Health::good, "rights of " + user,
            "something under " + std::to_string(allowed) + " of " + std::to_string(function_codes().size()) +
                " functions"};
  if (!library.table())
    return {Health::bad, "rights of " + user, "none", "have them granted in the suite that keeps the rights"};
  return {Health::bad, "rights of " + user, "none", "let " + user + " do everything",
          advised_command({"grant", user, "*", "all"}, context.session())};
}

}  // namespace

void examine_rights(VerbContext& context, Observations& seen) {
  if (context.user().empty()) {
    seen.push_back({Health::doubtful, "rights", "no user was named", "name one with --user or TALLYRA_USER"});
    return;
  }
  if (const auto refusal = refusal_of_user_name(context.user())) {
    seen.push_back({Health::bad, "rights of " + context.user(), *refusal, "name another user"});
    return;
  }
  try {
    seen.push_back(look_at(context));
  } catch (const automation::Error& error) {
    const std::string text = error_text(error);
    seen.push_back(
        {Health::bad, "rights of " + context.user(), text,
         advice_against(text).value_or("see to the table of the rights, or to the library that keeps them")});
  }
}

}  // namespace tallyra::client
