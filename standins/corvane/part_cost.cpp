#include "standins/corvane/part_cost.h"

#include <optional>

#include "automation/convert.h"
#include "standins/corvane/database.h"

namespace tallyra::standins::corvane {
namespace {

using automation::Object;

// A close asks for thousands of parts, one by one. The lines of one part are few, the documents of one type
// are many: a condition of the form "Not type<>" leaves the planner the index on the part as the only way in.
constexpr std::string_view purchase_receipt =
    "Not STKTRANHD.TRANTYPE<>'STK010POREV' And STKTRANHD.STATUSSN=1";
constexpr std::string_view production_receipt =
    "Not (STKTRANHD.TRANTYPE<>'STK022REVMO' And STKTRANHD.TRANTYPE<>'STK022REVSO') And STKTRANHD.STATUSSN=1";
constexpr std::string_view receipt_or_company_close =
    "Not (STKTRANHD.TRANTYPE<>'STK022REVMO' And STKTRANHD.TRANTYPE<>'STK022REVSO' And "
    "STKTRANHD.TRANTYPE<>'STKCLOSEALL')";
constexpr std::string_view company_close = "STKCLOSEALL";
constexpr std::int32_t approved = 1;

// A line without a price tells nothing about the cost and is left out everywhere.
std::string priced_lines(std::string_view columns, std::string_view part, std::string_view documents) {
  std::string statement;
  statement.reserve(512);
  statement += "Select ";
  statement += columns;
  statement +=
      " From STKTRANDT Inner Join STKTRANHD On STKTRANDT.TRANNO=STKTRANHD.TRANNO Where STKTRANDT.PARTNO=";
  append_quoted(statement, part);
  statement += " And STKTRANDT.UPRICE Is Not Null And ";
  statement += documents;
  return statement;
}

void append_period(std::string& statement, const Period& period) {
  statement += " And STKTRANHD.TRANDT>";
  statement += period.after;
  statement += " And STKTRANHD.TRANDT<=";
  statement += period.until;
}

double last_price(const Object& connection, std::string_view part, std::string_view documents,
                  std::string_view until) {
  std::string statement = priced_lines("Top 1 STKTRANDT.UPRICE As UPRICE", part, documents);
  statement += " And STKTRANHD.TRANDT<=";
  statement += until;
  statement += " Order By STKTRANHD.TRANDT Desc,STKTRANHD.TRANNO Desc,STKTRANDT.UPRICE Desc";
  const Query line(connection, statement);
  const double price = line.at_end() ? 0 : automation::to_double(line.value("UPRICE"));
  line.close();
  return price;
}

// Quantities and their value; an average of them means something only while there is a quantity and no
// negative value.
struct Stock {
  double quantity = 0;
  double amount = 0;

  void add(double more, double price) {
    quantity += more;
    amount += more * price;
  }
  std::optional<double> average() const {
    if (!(quantity > 0) || amount < 0) return std::nullopt;
    return amount / quantity;
  }
};

Stock purchases(const Object& connection, std::string_view part, const Period& period) {
  std::string statement = priced_lines(
      "Sum(STKTRANDT.QTY) As QTY,Sum(STKTRANDT.QTY*STKTRANDT.UPRICE) As AMOUNT", part, purchase_receipt);
  append_period(statement, period);
  const Query sums(connection, statement);
  Stock stock;
  if (!sums.at_end()) stock = {number_or_zero(sums.value("QTY")), number_or_zero(sums.value("AMOUNT"))};
  sums.close();
  return stock;
}

// What a period knows about a produced part.
struct Production {
  Stock stock;
  double carried_cost = 0;
};

// The company document of the previous close is dated the day after that close, so it lies within the period.
// Documents come newest first: the first company document is the one that counts.
Production production(const Object& connection, std::string_view part, const Period& period) {
  std::string statement =
      priced_lines("STKTRANHD.TRANTYPE,STKTRANHD.STATUSSN,STKTRANHD.TRANNO,STKTRANDT.QTY,STKTRANDT.UPRICE",
                   part, receipt_or_company_close);
  append_period(statement, period);
  statement += " Order By STKTRANHD.TRANDT Desc,STKTRANHD.TRANNO Desc";
  const Query lines(connection, statement);
  Production result;
  Stock carried;
  std::string carried_by;
  for (; !lines.at_end(); lines.move_next()) {
    const double quantity = number_or_zero(lines.value("QTY"));
    const double price = automation::to_double(lines.value("UPRICE"));
    if (automation::to_text(lines.value("TRANTYPE")) != company_close) {
      if (automation::equals_number(lines.value("STATUSSN"), approved)) result.stock.add(quantity, price);
      continue;
    }
    std::string document = automation::to_text(lines.value("TRANNO"));
    if (carried_by.empty()) {
      carried_by = std::move(document);
      result.carried_cost = price;
    } else if (document != carried_by) {
      continue;
    }
    carried.add(quantity, price);
  }
  lines.close();
  // Stock that is missing has no value that receipts could be averaged with.
  if (carried.quantity > 0) {
    result.stock.quantity += carried.quantity;
    result.stock.amount += carried.amount;
  }
  return result;
}

}  // namespace

double last_purchase_price(const Object& connection, std::string_view part, std::string_view until) {
  return last_price(connection, part, purchase_receipt, until);
}

double average_purchase_price(const Object& connection, std::string_view part, const Period& period) {
  if (const auto average = purchases(connection, part, period).average()) return *average;
  return last_purchase_price(connection, part, period.until);
}

double production_cost(const Object& connection, std::string_view part, const Period& period) {
  const Production known = production(connection, part, period);
  if (const auto average = known.stock.average()) return *average;
  if (known.carried_cost > 0) return known.carried_cost;
  return last_price(connection, part, production_receipt, period.until);
}

}  // namespace tallyra::standins::corvane
