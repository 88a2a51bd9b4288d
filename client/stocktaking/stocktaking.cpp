#include "client/stocktaking/stocktaking.h"

#include <cmath>

#include "automation/convert.h"
#include "client/month_end/period.h"
#include "client/month_end/sums.h"
#include "client/refusal.h"
#include "client/stocktaking/book.h"
#include "client/value_text.h"

namespace tallyra::client {
namespace {

Stocktaking stocktaking_in(const Row& row, const std::string& number) {
  Stocktaking stocktaking;
  stocktaking.number = number;
  stocktaking.department = text_or_nothing(row[1]);
  if (!row[0].is_null()) stocktaking.day = {std::floor(automation::to_date(row[0]).serial)};
  stocktaking.approved = !row[2].is_null() && automation::to_int32(row[2]) == 1;
  return stocktaking;
}

}  // namespace

Stocktaking stocktaking_of(const Reader& reader, const std::string& number) {
  const std::string literal = Reader::text_literal(number);
  std::optional<Stocktaking> found;
  reader.each_row("Select CHECKDT,DEPTNO,STATUSSN From STKCHECKHD Where CHECKNO=" + literal,
                  [&](const Row& row) { found = stocktaking_in(row, number); });
  if (!found) throw Refusal("no such row: there is no stocktaking " + number);
  found->department_known = reader.count("Select Count(*) As N From DEPARTS Where DEPTNO=" +
                                         Reader::text_literal(found->department)) != 0;
  found->postings = reader.count(
      "Select Count(*) As N From STKTRANHD Where TRANTYPE='STKCHECKISS' And REFERENCE=" + literal);
  return *found;
}

std::optional<automation::Date> close_over(const Reader& reader, const Stocktaking& stocktaking) {
  const auto records = close_records(reader);
  if (records.empty() || records.back().date.serial < stocktaking.day.serial) return std::nullopt;
  return records.back().date;
}

std::vector<CountedPart> counted_parts(const Reader& reader, const Stocktaking& stocktaking) {
  std::map<std::string, double> book;
  for (const BookLine& line : book_of(reader, stocktaking.department, stocktaking.day))
    book[line.part] = line.book;
  std::vector<CountedPart> parts;
  // Joined with the master for its spelling, by which the book is known.
  reader.each_row(
      "Select PARTS.PARTNO,STKCHECKDT.QTY From STKCHECKDT Inner Join PARTS On "
      "STKCHECKDT.PARTNO=PARTS.PARTNO"
      " Where STKCHECKDT.CHECKNO=" +
          Reader::text_literal(stocktaking.number) + " Order By PARTS.PARTNO",
      [&](const Row& row) {
        CountedPart part{shown_text(row[0]), {}, book[shown_text(row[0])]};
        if (!row[1].is_null()) part.counted = automation::to_double(row[1]);
        parts.push_back(std::move(part));
      });
  return parts;
}

std::map<std::string, double> posted_parts(const Reader& reader, const std::string& number) {
  std::map<std::string, double> posted;
  reader.each_row(
      "Select PARTS.PARTNO,Sum(STKTRANDT.QTY) As QTY From (STKTRANDT"
      " Inner Join STKTRANHD On STKTRANDT.TRANNO=STKTRANHD.TRANNO)"
      " Inner Join PARTS On STKTRANDT.PARTNO=PARTS.PARTNO"
      " Where STKTRANHD.TRANTYPE='STKCHECKISS' And STKTRANHD.REFERENCE=" +
          Reader::text_literal(number) + " Group By PARTS.PARTNO",
      [&](const Row& row) { posted[shown_text(row[0])] = automation::to_double(row[1]); });
  return posted;
}

}  // namespace tallyra::client
