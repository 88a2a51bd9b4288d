#include "client/setup/rights_library.h"

#include "automation/convert.h"
#include "automation/create.h"
#include "automation/error.h"
#include "client/setup/functions.h"

namespace tallyra::client {

RightsLibrary::RightsLibrary(const Session& session, const std::string& user)
    : object_(automation::create("Corvane.CPowerCheck")) {
  object_.put("Language", session.language.value_or(""));
  object_.put("ConnectionString", session.connection_string.value_or(""));
  object_.put("UserID", user);
  object_.put("SystemDatabase", session.database_kind);
}

std::optional<std::string> RightsLibrary::table() const {
  try {
    return automation::to_text(object_.get("RightsTable"));
  } catch (const automation::Error& error) {
    if (error.number() != automation::error_number::no_such_member) throw;
    return std::nullopt;
  }
}

RightFlags RightsLibrary::rights(const std::string& function) const {
  object_.call("PowerCheck", function);
  RightFlags flags;
  // The classes ask for 1, and nothing else is a right to them.
  for (const RightName& right : right_names())
    flags.push_back(automation::equals_number(object_.get(right.property), 1));
  return flags;
}

}  // namespace tallyra::client
