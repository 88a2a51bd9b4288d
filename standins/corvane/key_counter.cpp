#include "standins/corvane/key_counter.h"

#include <algorithm>
#include <optional>

#include "automation/convert.h"
#include "automation/error.h"
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

// One beyond what the series has stands for whatever is larger, and need not fit a counter.
std::int32_t stored_counter(const Object& connection, const std::string& condition, const Series& series) {
  const Query row(connection, "Select LASTNO From TABLEKEYS" + condition);
  const double counter = automation::to_double(row.value("LASTNO"));
  row.close();
  return static_cast<std::int32_t>(std::clamp(counter, 0.0, series.last_counter() + 1.0));
}

// One transaction that starts by writing: of two that run at once the second waits for the first, and neither
// has read anything before that it would have to wait for.
std::int32_t take(const Object& connection, const Series& series, std::int32_t floor) {
  const std::string condition = " Where SERIES=" + quoted_text(series.prefix());
  connection.call("BeginTrans");
  std::int32_t counter = 0;
  if (execute(connection, "Update TABLEKEYS Set LASTNO=LASTNO+1" + condition) == 0) {
    counter = floor + 1;
    execute(connection, "Insert Into TABLEKEYS(SERIES,LASTNO) Values(" + quoted_text(series.prefix()) + "," +
                            std::to_string(counter) + ")");
  } else {
    counter = stored_counter(connection, condition, series);
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

std::optional<Error> error_of(const auto& attempt) {
  try {
    attempt();
    return std::nullopt;
  } catch (const Error& error) {
    return error;
  }
}

// Where another process was faster, the table is there already: the next attempt shows.
std::optional<Error> create_table(const Object& connection) {
  return error_of([&] {
    execute(connection,
            "Create Table TABLEKEYS(SERIES VARCHAR(40) Not Null Primary Key,LASTNO INTEGER Not Null)");
  });
}

}  // namespace

std::int32_t take_next_counter(const Object& connection, const Series& series, std::int32_t floor) {
  std::optional<Error> not_created;
  for (int attempt = 1;; ++attempt) {
    std::int32_t counter = 0;
    const std::optional<Error> error = error_of([&] { counter = take(connection, series, floor); });
    if (!error) return counter;
    error_of([&] { connection.call("RollbackTrans"); });
    // That there is no table is what follows; why there is none is the reason.
    if (error->number() == no_such_table && not_created) throw *not_created;
    // Two first numbers of a series at once: the one that comes second finds the row now.
    const bool again = error->number() == no_such_table || error->number() == duplicate_key;
    if (!again || attempt == most_attempts) throw *error;
    if (error->number() == no_such_table) not_created = create_table(connection);
  }
}

}  // namespace tallyra::standins::corvane
