#pragma once

#include <optional>
#include <string>
#include <vector>

#include "client/database/reader.h"

namespace tallyra::client {

// A record of a month close.
struct CloseRecord {
  automation::Date date;
  bool approved = false;
  std::string made_by;
  std::optional<automation::Date> made_at;
};

// All of them, by date.
std::vector<CloseRecord> close_records(const Reader& reader);
const CloseRecord* find_record(const std::vector<CloseRecord>& records, automation::Date date);
// The latest one before the date.
const CloseRecord* record_before(const std::vector<CloseRecord>& records, automation::Date date);

bool is_last_of_month(automation::Date date);
// Months since the year 0, so that a difference says how many lie between two dates.
int month_number(automation::Date date);

// What a close of a date covers: the days after the close before it, up to the date. Close documents are
// dated the day after the close date.
struct Period {
  automation::Date after;
  automation::Date until;

  automation::Date documents_day() const { return automation::add_days(until, 1); }
};

Period period_of(const std::vector<CloseRecord>& records, automation::Date date);

// " And STKTRANHD.TRANDT>... And STKTRANHD.TRANDT<=...", as the close has it.
std::string within(const Reader& reader, const Period& period);

// The documents that closes write, and all others.
inline constexpr std::string_view close_documents_only =
    "(STKTRANHD.TRANTYPE='STK027CLOSE' Or STKTRANHD.TRANTYPE='STKCLOSEALL')";
inline constexpr std::string_view no_close_documents =
    "STKTRANHD.TRANTYPE<>'STK027CLOSE' And STKTRANHD.TRANTYPE<>'STKCLOSEALL'";

// How many documents a close of the date has.
struct DocumentCount {
  std::int64_t documents = 0;
  std::int64_t unapproved = 0;
};
DocumentCount count_close_documents(const Reader& reader, automation::Date date);

// Left out of what a close reads: the unapproved close documents, which it deletes before it begins.
inline constexpr std::string_view no_unapproved_close_documents =
    " And (STKTRANHD.TRANTYPE<>'STK027CLOSE' Or STKTRANHD.STATUSSN<>0 Or STKTRANHD.STATUSSN Is Null)";
// The company's documents are no movements.
inline constexpr std::string_view no_company_documents = " And STKTRANHD.TRANTYPE<>'STKCLOSEALL'";

}  // namespace tallyra::client
