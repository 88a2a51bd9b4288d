#include "client/month_end/period.h"

#include <algorithm>
#include <cmath>

#include "automation/convert.h"
#include "client/value_text.h"

namespace tallyra::client {
namespace {

using automation::Date;

// Where the first close of a company begins.
Date before_all_closes() {
  return *automation::parse_date("2000/01/01");
}

CloseRecord record_of(const Row& row) {
  CloseRecord record;
  record.date = {std::floor(automation::to_date(row[0]).serial)};
  record.approved = !row[1].is_null() && automation::to_int32(row[1]) == 1;
  for (const std::size_t i : {3U, 2U})
    if (!row[i].is_null()) record.made_by = automation::to_text(row[i]);
  if (!row[4].is_null()) record.made_at = automation::to_date(row[4]);
  return record;
}

}  // namespace

std::vector<CloseRecord> close_records(const Reader& reader) {
  std::vector<CloseRecord> records;
  reader.each_row("Select CLOSEDT,STATUSSN,MAKEBY,ADDBY,ADDDT From STKCLOSEHD Order By CLOSEDT",
                  [&](const Row& row) { records.push_back(record_of(row)); });
  return records;
}

const CloseRecord* find_record(const std::vector<CloseRecord>& records, Date date) {
  const auto found = std::ranges::find(records, date, &CloseRecord::date);
  return found == records.end() ? nullptr : &*found;
}

const CloseRecord* record_before(const std::vector<CloseRecord>& records, Date date) {
  const CloseRecord* found = nullptr;
  for (const CloseRecord& record : records)
    if (record.date.serial < date.serial) found = &record;
  return found;
}

bool is_last_of_month(Date date) {
  return automation::civil_time(automation::add_days(date, 1)).day == 1;
}

int month_number(Date date) {
  constexpr int months_of_a_year = 12;
  const automation::CivilTime civil = automation::civil_time(date);
  return civil.year * months_of_a_year + civil.month;
}

Period period_of(const std::vector<CloseRecord>& records, Date date) {
  const CloseRecord* previous = record_before(records, date);
  return {previous ? previous->date : before_all_closes(), date};
}

std::string within(const Reader& reader, const Period& period) {
  return " And STKTRANHD.TRANDT>" + reader.date_literal(period.after) +
         " And STKTRANHD.TRANDT<=" + reader.date_literal(period.until);
}

DocumentCount count_close_documents(const Reader& reader, automation::Date date) {
  const std::string query = "Select Count(*) As N From STKTRANHD Where " + std::string(close_documents_only) +
                            " And TRANDT=" + reader.date_literal(automation::add_days(date, 1));
  return {reader.count(query), reader.count(query + " And STATUSSN=0")};
}

}  // namespace tallyra::client
