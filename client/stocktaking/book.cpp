#include "client/stocktaking/book.h"

#include <map>

#include "automation/convert.h"
#include "client/month_end/period.h"
#include "client/value_text.h"

namespace tallyra::client {
namespace {

using Sums = std::map<std::string, double>;

// Where an approval lets the period begin as long as there is no close.
constexpr const char* begin_without_a_close = "2004/01/01";

std::string period_condition(const Reader& reader, automation::Date day) {
  automation::Date after = *automation::parse_date(begin_without_a_close);
  for (const CloseRecord& record : close_records(reader))
    if (record.date.serial <= day.serial) after = record.date;
  return " And STKTRANHD.TRANDT>" + reader.date_literal(after) +
         " And STKTRANHD.TRANDT<=" + reader.date_literal(day);
}

// Joined with the master, so that the engine's own idea of equal part numbers decides, as in an approval.
Sums sums_where(const Reader& reader, const std::string& condition) {
  Sums sums;
  reader.each_row(
      "Select PARTS.PARTNO,Sum(STKTRANDT.QTY) As QTY From (STKTRANDT"
      " Inner Join STKTRANHD On STKTRANDT.TRANNO=STKTRANHD.TRANNO)"
      " Inner Join PARTS On STKTRANDT.PARTNO=PARTS.PARTNO Where " +
          condition + " Group By PARTS.PARTNO",
      [&](const Row& row) {
        sums[shown_text(row[0])] = row[1].is_null() ? 0 : automation::to_double(row[1]);
      });
  return sums;
}

void add(BookLine& line, const Sums& sums) {
  const auto found = sums.find(line.part);
  if (found == sums.end()) return;
  line.moved = true;
  if (found->second > 0) line.book += found->second;
}

}  // namespace

std::vector<BookLine> book_of(const Reader& reader, const std::string& department, automation::Date day) {
  const std::string number = Reader::text_literal(department);
  const std::string period = period_condition(reader, day);
  const Sums outgoing = sums_where(reader, "STKTRANHD.DEPTNOFR=" + number + period);
  const Sums transferred =
      sums_where(reader, "STKTRANHD.DEPTNOTO=" + number + period + " And STKTRANHD.TRANTYPE='STK024MRPL'");
  std::vector<BookLine> lines;
  reader.each_row("Select PARTNO,PARTNM,UNITNM From PARTS Order By PARTNO", [&](const Row& row) {
    BookLine line{shown_text(row[0]), text_or_nothing(row[1]), text_or_nothing(row[2])};
    add(line, outgoing);
    add(line, transferred);
    lines.push_back(std::move(line));
  });
  return lines;
}

}  // namespace tallyra::client
