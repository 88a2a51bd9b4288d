#include "standins/corvane/key_counter.h"

#include "automation/error.h"
#include "automation/folded_name.h"
#include "standins/corvane/connection_string.h"
#include "standins/corvane/database.h"
#include "standins/corvane/failure.h"

namespace tallyra::standins::corvane {
namespace {

using automation::Error;
using automation::Object;

// What ADO's providers report.
constexpr std::int32_t no_such_table = static_cast<std::int32_t>(0x80040E37U);
constexpr std::int32_t duplicate_key = static_cast<std::int32_t>(0x80040E2FU);

constexpr int most_attempts = 5;

bool is_sqlite(const ConnectionString& connection_string) {
  return automation::folded(connection_string.value("Driver")).find("sqlite") != std::string::npos;
}

std::int32_t stored_counter(const Object& connection, const std::string& condition) {
  const Query row(connection, "Select LASTNO From TABLEKEYS" + condition);
  const std::int32_t counter = automation::to_int32(row.value("LASTNO"));
  row.close();
  return counter;
}

// One transaction that starts by writing: of two that run at once the second waits for the first, and neither
// has read anything before that it would have to wait for.
std::int32_t take(const Object& connection, const Series& series, std::int32_t floor) {
  const std::string condition = " Where SERIES=" + quoted(series.prefix());
  connection.call("BeginTrans");
  std::int32_t counter = 0;
  if (execute(connection, "Update TABLEKEYS Set LASTNO=LASTNO+1" + condition) == 0) {
    counter = floor + 1;
    execute(connection, "Insert Into TABLEKEYS(SERIES,LASTNO) Values(" + quoted(series.prefix()) + "," +
                            std::to_string(counter) + ")");
  } else {
    counter = stored_counter(connection, condition);
    if (counter <= floor) {
      counter = floor + 1;
      execute(connection, "Update TABLEKEYS Set LASTNO=" + std::to_string(counter) + condition);
    }
  }
  if (counter > series.last_counter())
    throw Error(failure::series_exhausted,
                "The series of document numbers that start with \"" + series.prefix() + "\" is used up.");
  connection.call("CommitTrans");
  return counter;
}

void ignore_errors(const auto& attempt) {
  try {
    attempt();
  } catch (const Error&) {
  }
}

// Where another process was faster, the table is there already: the next attempt shows.
void create_table(const Object& connection) {
  ignore_errors([&] {
    execute(connection,
            "Create Table TABLEKEYS(SERIES VARCHAR(40) Not Null Primary Key,LASTNO INTEGER Not Null)");
  });
}

}  // namespace

std::string key_database(const std::string& connection_string) {
  ConnectionString parts(connection_string);
  if (!is_sqlite(parts) || parts.value("Database").empty()) return connection_string;
  parts.extend("Database", ".keys");
  return parts.text();
}

std::string with_bounded_wait(const std::string& connection_string) {
  ConnectionString parts(connection_string);
  if (!is_sqlite(parts)) return connection_string;
  parts.add_if_missing("Timeout", "30000");
  return parts.text();
}

std::int32_t take_next_counter(const std::string& key_connection_string, const Series& series,
                               std::int32_t floor) {
  const Object connection = open_connection(key_connection_string);
  for (int attempt = 1;; ++attempt) {
    try {
      const std::int32_t counter = take(connection, series, floor);
      connection.call("Close");
      return counter;
    } catch (const Error& error) {
      ignore_errors([&] { connection.call("RollbackTrans"); });
      // Two first numbers of a series at once: the one that comes second finds the row now.
      const bool again = error.number() == no_such_table || error.number() == duplicate_key;
      if (!again || attempt == most_attempts) throw;
      if (error.number() == no_such_table) create_table(connection);
    }
  }
}

}  // namespace tallyra::standins::corvane
