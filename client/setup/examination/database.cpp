#include <algorithm>
#include <exception>

#include "automation/clock.h"
#include "automation/convert.h"
#include "automation/error.h"
#include "automation/folded_name.h"
#include "client/database/connection_text.h"
#include "client/database/own_tables.h"
#include "client/setup/examination/examination.h"
#include "client/setup/trouble.h"

// The database itself: whether it opens, can be written to and lets others in.
namespace tallyra::client {
namespace {

std::string time_text(std::int64_t milliseconds) {
  constexpr std::int64_t second = 1000;
  return milliseconds % second == 0 ? std::to_string(milliseconds / second) + " seconds"
                                    : std::to_string(milliseconds) + " milliseconds";
}

std::string first_value(const Reader& reader, const std::string& query) {
  const Rows rows = reader.rows(query);
  return rows.rows.empty() ? std::string() : automation::to_text(rows.rows.front().at(0));
}

void examine_sqlite(const std::string& connection_string, const Reader& reader, Observations& seen) {
  const std::string mode = first_value(reader, "Pragma journal_mode");
  if (automation::equals_folded(mode, "wal"))
    seen.push_back(
        {Health::good, "journal of SQLite", "WAL: readers and the writer do not wait for each other"});
  else
    seen.push_back({Health::doubtful, "journal of SQLite",
                    mode + ": readers and the writer wait for each other",
                    "put JournalMode=WAL into the connection string once"});
  const bool says = automation::folded(connection_string).find("timeout=") != std::string::npos;
  seen.push_back({Health::good, "waiting for a lock",
                  time_text(reader.count("Pragma busy_timeout")) +
                      (says ? ", as Timeout in the connection string says"
                            : ", as no Timeout stands in the connection string")});
}

void examine_postgresql(const Reader& reader, Observations& seen) {
  // "0", or with its unit: "5s".
  const std::string wait = first_value(reader, "Show lock_timeout");
  seen.push_back({Health::good, "waiting for a lock",
                  (wait == "0" ? std::string("until it is free") : wait) + ", as lock_timeout says"});
}

// One that changes no row; it takes the lock of a writer all the same.
constexpr const char* harmless_update = "Update STKCLOSEHD Set NOTES=NOTES Where CLOSEDT<>CLOSEDT";

}  // namespace

void examine_database(VerbContext& context, Observations& seen) {
  const std::string& connection_string = *context.session().connection_string;
  const Reader& reader = context.reader();
  const std::string engine = reader.engine();
  const std::string name = reader.property("DBMS Version");
  seen.push_back({Health::good, "database", shown_connection(connection_string)});
  seen.push_back({Health::good, "engine",
                  (engine.empty() ? std::string("does not say its name") : engine) + " " + name});
  const std::string driver = reader.property("Driver Name") + " " + reader.property("Driver Version");
  seen.push_back({Health::good, "driver", driver == " " ? "does not say its name" : driver});
  if (engine == "SQLite") examine_sqlite(connection_string, reader, seen);
  if (engine == "PostgreSQL") examine_postgresql(reader, seen);
}

void examine_writing(VerbContext& context, Observations& seen) {
  const Reader& reader = context.reader();
  try {
    reader.begin();
    reader.execute(harmless_update);
    reader.roll_back();
    seen.push_back(
        {Health::good, "transactions and writing", "a transaction began, wrote and was rolled back"});
  } catch (const automation::Error& error) {
    reader.roll_back();
    const std::string text = error_text(error);
    seen.push_back({Health::bad, "transactions and writing", text,
                    advice_against(text).value_or(
                        "let the user of the connection string write, or see what the driver can do")});
  }
  if (has_own_tables(reader))
    seen.push_back({Health::good, "lock and journal", "this program has its tables"});
  else
    seen.push_back({Health::doubtful, "lock and journal", "this program has no tables in the database yet",
                    "'upgrade' makes them, and so does the first close, after asking"});
}

void examine_clock(const Reader& reader, Observations& seen) {
  const automation::Date now = automation::now();
  const std::string text = automation::to_text(automation::Value(now));
  std::optional<automation::Date> latest;
  reader.each_row("Select Max(ADDDT) As N From STKTRANHD", [&](const Row& row) {
    if (!row.at(0).is_null()) latest = automation::to_date(row[0]);
  });
  if (!latest || latest->serial < automation::add_days(now, 1).serial)
    seen.push_back({Health::good, "clock", text});
  else
    seen.push_back(
        {Health::doubtful, "clock",
         text + ", yet a document was entered at " + automation::to_text(automation::Value(*latest)),
         "set the clock of this machine, or look for the machine whose clock was wrong"});
}

}  // namespace tallyra::client
