#include <cmath>

#include "automation/convert.h"
#include "client/month_end/findings/all_findings.h"
#include "client/verbs/context.h"

// What can be wrong with the date of a close, and with the closes before and after it.
namespace tallyra::client {
namespace {

using automation::Date;

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

// Without an earlier close: the first day on which anything moved, if it is in a month before that of the
// close.
Found look_before_first_close(const CloseCase& close) {
  std::optional<Date> first;
  close.reader.each_row(
      "Select Min(TRANDT) As FIRSTDT From STKTRANHD Where TRANTYPE<>'STK027CLOSE' And TRANTYPE<>'STKCLOSEALL'"
      " And TRANDT>" +
          close.reader.date_literal(close.period.after),
      [&](const Row& row) {
        if (!row[0].is_null()) first = automation::to_date(row[0]);
      });
  if (!first || month_number(*first) >= month_number(close.date)) return {};
  return {month_number(close.date) - month_number(*first),
          {"no close yet, and documents since " + day_text({std::floor(first->serial)})}};
}

Found look_at_months(const CloseCase& close) {
  const CloseRecord* previous = record_before(close.records, close.date);
  if (!previous) return look_before_first_close(close);
  const int between = month_number(close.date) - month_number(previous->date) - 1;
  if (between <= 0) return {};
  return {between, {"the close before it is that of " + day_text(previous->date)}};
}

std::int64_t unapproved_documents_of(const CloseCase& close, Date date) {
  return close.reader.count(
      "Select Count(*) As N From STKTRANHD Where (TRANTYPE='STK027CLOSE' Or TRANTYPE='STKCLOSEALL') And "
      "STATUSSN=0"
      " And TRANDT=" +
      close.reader.date_literal(automation::add_days(date, 1)));
}

Found look_at_previous(const CloseCase& close) {
  Found found;
  for (const CloseRecord& record : close.records) {
    if (record.date.serial >= close.date.serial) continue;
    const std::int64_t documents = unapproved_documents_of(close, record.date);
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
