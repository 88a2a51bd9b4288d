#include "client/setup/examination/examination.h"

#include <functional>

#include "automation/error.h"
#include "client/database/connection_text.h"
#include "client/setup/schema.h"
#include "client/setup/trouble.h"
#include "client/wait_notice.h"

namespace tallyra::client {
namespace {

// A look that the database itself broke off is a finding as well.
void look(const char* what, Observations& seen, const std::function<void()>& examine_it) {
  try {
    examine_it();
  } catch (const automation::Error& error) {
    const std::string text = error_text(error);
    seen.push_back({Health::bad, what, text, advice_against(text).value_or("mend what is told above first")});
  }
}

using Examine = void (*)(VerbContext& context, Observations& seen);

// A look that takes long only where another one holds a lock.
void look_soon(VerbContext& context, const char* what, Observations& seen, Examine examine_it) {
  const WaitNotice notice(context.console());
  look(what, seen, [&] { examine_it(context, seen); });
}

bool is_database(const Reader& reader, const std::string& connection_string, Observations& seen) {
  const auto trouble =
      trouble_with(reader, "name the file of a database; one that is damaged is restored from a backup");
  if (!trouble) return true;
  seen.push_back({Health::bad, "database", shown_connection(connection_string) + ": " + trouble->error,
                  trouble->advice});
  return false;
}

bool opens(VerbContext& context, Observations& seen) {
  const auto& connection_string = context.bare_session().connection_string;
  if (!connection_string) {
    seen.push_back({Health::doubtful, "database", "none was named", "name one with --db or TALLYRA_DB"});
    return false;
  }
  try {
    context.reader();
    const WaitNotice notice(context.console());
    return is_database(context.reader(), *connection_string, seen);
  } catch (const automation::Error& error) {
    const std::string text = error_text(error);
    seen.push_back(
        {Health::bad, "database", shown_connection(*connection_string) + ": " + text,
         advice_against(text).value_or("see to the driver, the server and the connection string")});
    return false;
  }
}

}  // namespace

Observations examine(VerbContext& context) {
  Observations seen;
  examine_libraries(context, seen);
  if (!opens(context, seen)) return seen;
  look("database", seen, [&] { examine_database(context, seen); });
  if (tables_there(context.reader()).empty()) {
    seen.push_back({Health::bad, "tables", "none is there, or none can be read",
                    "'init' makes them; where they are there, let the user of the connection read them"});
    return seen;
  }
  look("tables", seen, [&] { examine_tables(context.reader(), seen); });
  look_soon(context, "rights", seen, examine_rights);
  look_soon(context, "writing", seen, examine_writing);
  look_soon(context, "document numbers", seen, examine_numbers);
  look("clock", seen, [&] { examine_clock(context.reader(), seen); });
  return seen;
}

}  // namespace tallyra::client
