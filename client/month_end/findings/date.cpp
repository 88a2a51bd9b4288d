#include "automation/convert.h"
#include "client/month_end/findings/all_findings.h"
#include "client/verbs/context.h"

// What can be wrong with the date of a close, and with the closes before and after it.
namespace tallyra::client {
namespace {

Found one(std::string text) {
  return {1, {std::move(text)}};
}

Found look_at_day(const CloseCase& close) {
  if (is_last_of_month(close.date)) return {};
  return one(day_text(close.date) + " is within its month");
}

Found look_at_today(const CloseCase& close) {
  if (close.date.serial <= close.today.serial) return {};
  return one(day_text(close.date) + " is after today, " + day_text(close.today));
}

Found look_at_later_closes(const CloseCase& close) {
  Found found;
  for (const CloseRecord& record : close.records)
    if (record.date.serial >= close.date.serial && ++found.count <= static_cast<std::int64_t>(first_rows))
      found.first.push_back("closed: " + day_text(record.date));
  return found;
}

// From one month up to another, both by their numbers, the last one left out.
Found months_without_a_close(int first, int end) {
  constexpr int months_of_a_year = 12;
  Found found;
  for (int month = first; month < end; ++month) {
    if (++found.count > static_cast<std::int64_t>(first_rows)) continue;
    const int of_year = (month - 1) % months_of_a_year + 1;
    found.first.push_back("no close of " + std::to_string((month - 1) / months_of_a_year) +
                          (of_year < 10 ? "/0" : "/") + std::to_string(of_year));
  }
  return found;
}

// Without an earlier close the first month is the one in which anything moved.
std::optional<int> month_of_first_document(const CloseCase& close) {
  std::optional<int> month;
  close.reader.each_row("Select Min(TRANDT) As FIRSTDT From STKTRANHD Where " +
                            std::string(no_close_documents) + " And TRANDT>" +
                            close.reader.date_literal(close.period.after),
                        [&](const Row& row) {
                          if (!row[0].is_null()) month = month_number(automation::to_date(row[0]));
                        });
  return month;
}

Found look_at_months(const CloseCase& close) {
  const CloseRecord* previous = record_before(close.records, close.date);
  const auto first =
      previous ? std::optional(month_number(previous->date) + 1) : month_of_first_document(close);
  return first ? months_without_a_close(*first, month_number(close.date)) : Found();
}

Found look_at_previous(const CloseCase& close) {
  Found found;
  for (const CloseRecord& record : close.records) {
    if (record.date.serial >= close.date.serial) continue;
    const std::int64_t documents = count_close_documents(close.reader, record.date).unapproved;
    if (record.approved && documents == 0) continue;
    if (++found.count <= static_cast<std::int64_t>(first_rows))
      found.first.push_back("close of " + day_text(record.date) + ": " + std::to_string(documents) +
                            " documents would be deleted");
  }
  return found;
}

}  // namespace

const Finding not_month_end{"not-month-end", Severity::error, "the date is not the last day of a month",
                            "close the last day of the month", look_at_day};
const Finding in_future{"in-future", Severity::error,
                        "the date is in the future; everything up to it would be closed",
                        "close when the month is over", look_at_today};
const Finding before_a_close{"before-a-close", Severity::error, "there is a close at the date or after it",
                             "reopen the later closes first, the latest first", look_at_later_closes};
const Finding month_left_out{"month-left-out", Severity::error, "a month before it has no close of its own",
                             "close the months in their order", look_at_months};
const Finding previous_unapproved{
    "previous-unapproved", Severity::error,
    "a close before it is not approved: this close would delete its documents, and the "
    "stock that they carry over",
    "look at it with 'verify' and 'report', then 'approve' it", look_at_previous};

}  // namespace tallyra::client
