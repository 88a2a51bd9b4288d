#include <utility>

#include "automation/clock.h"
#include "automation/convert.h"
#include "client/month_end/leftovers.h"
#include "client/month_end/lock.h"
#include "client/month_end/period.h"
#include "client/month_end/summary.h"
#include "client/verbs/all_verbs.h"
#include "client/verbs/context.h"

// How the closes stand: which there are, what an unfinished one has left, who is at work.
namespace tallyra::client {
namespace {

constexpr std::string_view examples[] = {"status --db stock.db"};

Table closes_table(const Reader& reader) {
  Table table{"closes", "Closes", {{"date"}, {"state"}, number_column("documents"), {"by"}, {"at"}}, {}};
  for (const CloseRecord& record : close_records(reader)) {
    const DocumentCount count = count_close_documents(reader, record.date);
    const char* state = record.approved && count.unapproved == 0 ? "approved"
                        : record.approved                        ? "approved, documents are not"
                                                                 : "not approved";
    const automation::Value at = record.made_at ? automation::Value(*record.made_at) : automation::Value();
    table.rows.push_back(
        {day_text(record.date), state, static_cast<double>(count.documents), record.made_by, at});
  }
  return table;
}

Table leftovers_table(const std::vector<Leftover>& left, bool at_work) {
  Table table{"unfinished",
              at_work ? "Written so far by the close at work" : "Left by an unfinished close",
              {{"date"}, {"document"}, {"department"}, number_column("lines")},
              {}};
  for (const Leftover& document : left)
    table.rows.push_back({day_text(document.close_date), document.document,
                          document.of_company ? "company" : document.department,
                          static_cast<double>(document.lines)});
  return table;
}

// In the unit in which a person thinks of it.
std::string age_text(const std::string& since) {
  constexpr double minutes_of_a_day = 24.0 * 60.0;
  constexpr double minutes_of_an_hour = 60.0;
  const auto begin = automation::parse_date(since);
  if (!begin) return {};
  const double minutes = (automation::now().serial - begin->serial) * minutes_of_a_day;
  const auto [number, unit] = minutes < 2 * minutes_of_an_hour ? std::pair(minutes, " minutes ago")
                              : minutes < 2 * minutes_of_a_day
                                  ? std::pair(minutes / minutes_of_an_hour, " hours ago")
                                  : std::pair(minutes / minutes_of_a_day, " days ago");
  return std::to_string(static_cast<long long>(number)) + unit;
}

Table lock_table(const std::optional<LockHolder>& holder) {
  Table table{
      "lock",
      "At work",
      {{"work"}, {"user"}, {"login"}, {"host"}, number_column("process"), {"state"}, {"since"}, {"age"}},
      {}};
  if (!holder) return table;
  const char* state = holder->dead()           ? "has ended"
                      : holder->on_this_host() ? "runs"
                                               : "on another host, not known";
  table.rows.push_back({holder->work, holder->owner, holder->login, holder->host,
                        static_cast<double>(holder->process.id), state, holder->since,
                        age_text(holder->since)});
  return table;
}

void advise(const VerbContext& context, const std::vector<Leftover>& left,
            const std::optional<LockHolder>& holder) {
  if (holder && !holder->dead()) return;
  if (holder) context.tell("The process that holds the lock has ended; the next close takes the lock over.");
  if (left.empty()) return;
  std::string verbs;
  for (const automation::Date date : dates_of(left))
    verbs += (verbs.empty() ? "'reopen " : " and 'reopen ") + day_text(date) + "'";
  context.tell("A close did not come to its end and has left " + leftovers_text(left) + ". Close " +
               day_text(left.back().close_date) + " again, or delete that with " + verbs +
               "; approve no stocktaking before.");
}

ExitStatus run(VerbContext& context) {
  const Reader& reader = context.reader();
  const auto left = leftovers(reader);
  const auto holder = lock_holder(reader);
  const bool text = context.format() == OutputFormat::text;
  std::vector<Table> tables{closes_table(reader)};
  // A program finds all three always.
  if (!left.empty() || !text) tables.push_back(leftovers_table(left, holder && holder->is_closing()));
  if (holder || !text) tables.push_back(lock_table(holder));
  context.print(tables);
  advise(context, left, holder);
  return exit_done;
}

}  // namespace

const Verb status_verb{
    .name = "status",
    .arguments = "",
    .summary = "closes and their states, an unfinished one, who is at work",
    .help =
        "Shows every close with its state, what an unfinished one has left, and who holds the lock since "
        "when.",
    .options = {},
    .examples = examples,
    .least_arguments = 0,
    .most_arguments = 0,
    .run = run,
};

}  // namespace tallyra::client
