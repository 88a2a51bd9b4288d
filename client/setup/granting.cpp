#include "client/setup/granting.h"

#include <algorithm>

#include "automation/convert.h"
#include "client/refusal.h"
#include "client/setup/functions.h"
#include "client/setup/rights_table.h"
#include "client/suggestion.h"

namespace tallyra::client {
namespace {

RightFlags effective(const VerbContext& context, const std::string& user, const std::string& function) {
  return RightsLibrary(context.session(), user).rights(function);
}

bool has_any(const RightFlags& flags) {
  return std::ranges::find(flags, true) != flags.end();
}

// A user without a row may still have what everybody has.
void require_something_to_lose(VerbContext& context, const std::string& user, const std::string& function) {
  if (has_any(effective(context, user, function))) return;
  std::vector<std::string> users;
  for (const RightsRow& row : RightsTable(context).rows()) users.push_back(automation::trimmed(row.user));
  if (std::ranges::find(users, user) != users.end()) return;
  throw Refusal("there is no user '" + user + "' in the table of rights; nothing was changed" +
                did_you_mean(user, std::vector<std::string_view>(users.begin(), users.end())));
}

RightFlags set_rights(VerbContext& context, const RightsRow& wanted, const std::vector<std::size_t>& places,
                      bool granted) {
  const RightsTable table(context);
  const auto own = table.find(wanted.user, wanted.function);
  RightsRow row = own.value_or(wanted);
  if (!own) row.flags = effective(context, wanted.user, wanted.function);
  const RightFlags before = row.flags;
  for (const std::size_t place : places) row.flags[place] = granted;
  if (own || row.flags != before) table.write(row);
  return row.flags;
}

}  // namespace

RightFlags grant_rights(VerbContext& context, const std::string& user, const std::string& function,
                        const std::vector<std::size_t>& places) {
  return set_rights(context, {user, function, {}}, places, true);
}

RightFlags revoke_rights(VerbContext& context, const std::string& user, const std::string& function,
                         const std::vector<std::size_t>& places) {
  require_something_to_lose(context, user, function);
  RightFlags left = set_rights(context, {user, function, {}}, places, false);
  if (has_any(left)) return left;
  // A row of nothing is kept only where it takes away what another row would give.
  const RightsTable table(context);
  const auto own = table.find(user, function);
  if (!own) return left;
  table.remove(*own);
  if (has_any(effective(context, user, function))) table.write(*own);
  return left;
}

std::vector<std::string> functions_of_his_own(VerbContext& context, const std::string& user) {
  std::vector<std::string> functions;
  for (const RightsRow& row : RightsTable(context).rows())
    if (automation::trimmed(row.user) == user && automation::trimmed(row.function) != "*")
      functions.push_back(automation::trimmed(row.function));
  return functions;
}

}  // namespace tallyra::client
