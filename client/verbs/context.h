#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "client/call_run.h"
#include "client/console.h"
#include "client/database/reader.h"
#include "client/options.h"
#include "client/output/table.h"
#include "client/session.h"

namespace tallyra::client {

// What a verb works with: its words, the session, the database and the person in front of it.
class VerbContext {
 public:
  VerbContext(Words words, Session session, const Console& console);

  const Words& words() const { return words_; }
  const std::string& argument(std::size_t i) const { return words_.arguments.at(i); }
  bool has(std::string_view option) const { return words_.has(option); }

  // The session with a database. Throws UsageError when none was given.
  const Session& session() const;
  // The same without asking for a database.
  const Session& bare_session() const { return session_; }
  // The user of the session, "" when none was given.
  std::string user() const { return session_.user.value_or(""); }
  // The client's own connection, opened at its first use.
  const Reader& reader();
  // Lets it go; the next use opens another one.
  void close_reader() { reader_.reset(); }
  // A call of a class of ours in this session: call({"Tallyra.CStockClose", "Delete", {date}}). A right that
  // was lacking is told with whom to grant what.
  Outcome call(const Call& call) const;

  const Console& console() const { return console_; }
  bool quiet() const { return words_.has("--quiet"); }
  OutputFormat format() const;

  // The result, on the output.
  void print(const Table& table) const { print(std::vector<Table>{table}); }
  void print(const std::vector<Table>& tables) const;
  // A line that tells how it goes or what was done, on the error output; not with --quiet.
  void tell(std::string_view line) const;
  // A line that has to be read, on the error output.
  void warn(std::string_view line) const;
  // Whether the person says yes; --yes says it for him. Throws Refusal when nobody is there to answer.
  bool confirm(std::string_view question) const;

 private:
  Words words_;
  Session session_;
  const Console& console_;
  std::optional<Reader> reader_;
};

// The date in a word of the command line. Throws UsageError for any other text, `what` being its place in the
// usage.
automation::Date date_of(std::string_view word, std::string_view what = "DATE");

// "YYYY/MM/DD".
std::string day_text(automation::Date date);

// What the error fields of a call, or the error that left the object, say; for messages.
std::string failure_text(const Outcome& outcome);

}  // namespace tallyra::client
