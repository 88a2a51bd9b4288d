#include "client/setup/examination/examination.h"

#include <functional>

#include "automation/error.h"
#include "client/database/connection_text.h"

namespace tallyra::client {
namespace {

// A look that the database itself broke off is a finding as well.
void look(const char* what, Observations& seen, const std::function<void()>& examine_it) {
  try {
    examine_it();
  } catch (const automation::Error& error) {
    seen.push_back({Health::bad, what, error_text(error), "mend what is told above first"});
  }
}

bool opens(VerbContext& context, Observations& seen) {
  const auto& connection_string = context.bare_session().connection_string;
  if (!connection_string) {
    seen.push_back({Health::doubtful, "database", "none was named", "name one with --db or TALLYRA_DB"});
    return false;
  }
  try {
    context.reader();
    return true;
  } catch (const automation::Error& error) {
    seen.push_back({Health::bad, "database", shown_connection(*connection_string) + ": " + error_text(error),
                    "see to the driver, the server and the connection string"});
    return false;
  }
}

}  // namespace

std::string error_text(const automation::Error& error) {
  return "error " + std::to_string(error.number()) + ": " + std::string(error.description());
}

Observations examine(VerbContext& context) {
  Observations seen;
  examine_libraries(context, seen);
  if (!opens(context, seen)) return seen;
  look("database", seen, [&] { examine_database(context, seen); });
  look("tables", seen, [&] { examine_tables(context.reader(), seen); });
  look("rights", seen, [&] { examine_rights(context, seen); });
  look("writing", seen, [&] { examine_writing(context.reader(), seen); });
  look("clock", seen, [&] { examine_clock(context.reader(), seen); });
  return seen;
}

}  // namespace tallyra::client
