#include <set>

#include "automation/convert.h"
#include "client/month_end/findings/all_findings.h"
#include "client/value_text.h"

// Parts that move and to which the close can give no cost.
namespace tallyra::client {
namespace {

using Parts = std::set<std::string, std::less<>>;

Parts parts_of(const Reader& reader, const std::string& query) {
  Parts parts;
  reader.each_row(query, [&](const Row& row) { parts.insert(shown_text(row[0])); });
  return parts;
}

// Parts with a price in an approved document of that kind, up to the close date.
Parts received(const CloseCase& close, const std::string& types) {
  return parts_of(
      close.reader,
      "Select STKTRANDT.PARTNO From STKTRANDT Inner Join STKTRANHD On STKTRANDT.TRANNO=STKTRANHD.TRANNO"
      " Where STKTRANDT.UPRICE>0 And STKTRANHD.STATUSSN=1 And (" +
          types + ") And STKTRANHD.TRANDT<=" + close.reader.date_literal(close.date) +
          " Group By STKTRANDT.PARTNO");
}

// Parts to which the close before has given a cost.
Parts carried_over(const CloseCase& close) {
  return parts_of(
      close.reader,
      "Select STKTRANDT.PARTNO From STKTRANDT Inner Join STKTRANHD On STKTRANDT.TRANNO=STKTRANHD.TRANNO"
      " Where STKTRANHD.TRANTYPE='STKCLOSEALL' And STKTRANDT.UPRICE>0 And STKTRANHD.TRANDT=" +
          close.reader.date_literal(automation::add_days(close.period.after, 1)) +
          " Group By STKTRANDT.PARTNO");
}

bool is_number(const automation::Value& value, double number) {
  return !value.is_null() && automation::equals_number(value, number);
}

Found look(const CloseCase& close) {
  constexpr double moving_average = 2;
  const Parts purchased = received(close, "STKTRANHD.TRANTYPE='STK010POREV'");
  Parts produced = received(close, "STKTRANHD.TRANTYPE='STK022REVMO' Or STKTRANHD.TRANTYPE='STK022REVSO'");
  produced.merge(carried_over(close));
  Found found;
  close.reader.each_row("Select PARTNO,PRICETYPESN,MTYPESN From PARTS Order By PARTNO", [&](const Row& row) {
    const std::string part = shown_text(row[0]);
    const bool made =
        is_number(row[1], moving_average) && !row[2].is_null() && automation::to_double(row[2]) > 1;
    if (!close.gathered.parts.contains(part) || (made ? produced : purchased).contains(part)) return;
    if (++found.count <= static_cast<std::int64_t>(first_rows))
      found.first.push_back("part " + part + (made ? ", made here" : ", purchased"));
  });
  return found;
}

}  // namespace

const Finding no_cost{"no-cost", Severity::warning,
                      "parts that move have no approved receipt with a price; their cost would be 0",
                      "enter or approve a receipt with its price", look};

}  // namespace tallyra::client
