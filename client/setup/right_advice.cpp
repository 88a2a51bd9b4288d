#include "client/setup/right_advice.h"

#include "automation/convert.h"
#include "automation/error.h"
#include "automation/folded_name.h"
#include "client/database/reader.h"
#include "client/setup/advised_command.h"
#include "client/setup/functions.h"
#include "client/setup/rights_library.h"
#include "client/setup/rights_table.h"

namespace tallyra::client {
namespace {

// In single precision, as objects hold it.
constexpr float no_right = 10000016;

// An update is asked for by the right that its tag needs; the tag is the last argument.
std::string right_for(const Call& call) {
  if (automation::equals_folded(call.member, "Delete")) return "delete";
  if (!automation::equals_folded(call.member, "Update")) return "insert";
  const std::string tag = call.arguments.empty() ? std::string() : automation::to_text(call.arguments.back());
  for (const auto& [word, right] : {std::pair{"APPROVED", "approve"}, std::pair{"UNAPPROVED", "unapprove"},
                                    std::pair{"CANCEL", "cancel"}, std::pair{"FINISHED", "finish"}})
    if (tag == word) return right;
  return "update";
}

// The classes of documents take the type, which is the function, as an argument.
std::string function_for(const Call& call) {
  const std::size_t point = call.prog_id.find('.');
  const std::string_view name =
      std::string_view(call.prog_id).substr(point == std::string::npos ? 0 : point + 1);
  if (const auto function = function_of_class(name)) return std::string(*function);
  for (const automation::Value& argument : call.arguments)
    for (const FunctionCode& function : function_codes())
      if (argument.is_text() && automation::to_text(argument) == function.code)
        return std::string(function.code);
  return "*";
}

bool nobody_has_any(const Session& session, const std::string& table) {
  const Reader reader(session.connection_string.value_or(""), session.database_kind);
  return reader.count("Select Count(*) As N From " + table) == 0;
}

std::string advice_for(const Call& call, const Session& session, const std::string& user) {
  if (const auto refusal = refusal_of_user_name(user))
    return "nobody can grant a right to the user " + user + ": " + *refusal;
  const auto table = RightsLibrary(session, user).table();
  if (!table)
    return "have it granted in the suite that keeps the rights; what it answers is shown by: " +
           advised_command({"rights", user}, session);
  const std::string begin =
      nobody_has_any(session, *table) ? "nobody has any right in this database yet; let " : "let ";
  // The command ends the text, so that it can be pasted.
  return begin + user +
         " do it by: " + advised_command({"grant", user, function_for(call), right_for(call)}, session);
}

}  // namespace

std::optional<std::string> right_advice(const Call& call, const Outcome& outcome, const Session& session) {
  if (!outcome.error_number || static_cast<float>(*outcome.error_number) != no_right) return std::nullopt;
  const std::string user = session.user.value_or("");
  if (user.empty()) return "no user was named: name one with --user or TALLYRA_USER";
  try {
    return advice_for(call, session, user);
  } catch (const automation::Error&) {
    return std::nullopt;
  }
}

}  // namespace tallyra::client
