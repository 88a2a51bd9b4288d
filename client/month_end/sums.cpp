#include "client/month_end/sums.h"

#include <cmath>
#include <limits>
#include <numeric>

#include "automation/convert.h"
#include "client/value_text.h"

namespace tallyra::client {
namespace {

std::string grouped_sum(const std::string& condition) {
  return "Select STKTRANDT.PARTNO,Sum(STKTRANDT.QTY) As QTY,Sum(Abs(STKTRANDT.QTY)) As QTYABS,"
         "Count(*) As N From STKTRANDT"
         " Inner Join STKTRANHD On STKTRANDT.TRANNO=STKTRANHD.TRANNO Where " +
         condition + " Group By STKTRANDT.PARTNO";
}

void add_size(PartSum& sum, const Row& row) {
  if (!row[2].is_null()) sum.magnitude += automation::to_double(row[2]);
  sum.lines += automation::to_double(row[3]);
}

}  // namespace

double PartSum::quantity() const {
  return goes_out ? out + in : std::fabs(in);
}

double PartSum::rounding() const {
  return lines * std::numeric_limits<double>::epsilon() * magnitude;
}

std::vector<Department> departments(const Reader& reader) {
  std::vector<Department> result;
  reader.each_row("Select DEPTNO,DEPTNM From DEPARTS Order By DEPTNO", [&](const Row& row) {
    result.push_back({key_text(row[0]), row[1].is_null() ? std::string() : automation::to_text(row[1])});
  });
  return result;
}

PartSums sums_of(const Reader& reader, const std::string& department, const Period& period,
                 const std::string& further) {
  PartSums sums;
  const std::string number = Reader::text_literal(department);
  reader.each_row(grouped_sum("STKTRANHD.DEPTNOFR=" + number + within(reader, period) +
                              std::string(no_company_documents) + further),
                  [&](const Row& row) {
                    PartSum& sum = sums[shown_text(row[0])];
                    sum.goes_out = true;
                    sum.out_unknown = row[1].is_null();
                    if (!sum.out_unknown) sum.out = automation::to_double(row[1]);
                    add_size(sum, row);
                  });
  reader.each_row(grouped_sum("STKTRANHD.DEPTNOTO=" + number + " And STKTRANHD.TRANTYPE='STK024MRPL'" +
                              within(reader, period) + further),
                  [&](const Row& row) {
                    PartSum& sum = sums[shown_text(row[0])];
                    sum.comes_in = true;
                    sum.in_unknown = row[1].is_null();
                    if (!sum.in_unknown) sum.in = automation::to_double(row[1]);
                    add_size(sum, row);
                  });
  return sums;
}

std::size_t ClosePlan::lines() const {
  return std::accumulate(departments.begin(), departments.end(), company_lines,
                         [](std::size_t sum, const Share& share) { return sum + share.lines; });
}

std::string key_text(const automation::Value& value) {
  std::string text = value.is_null() ? std::string() : shown_text(value);
  text.resize(text.find_last_not_of(' ') + 1);
  return text;
}

std::string quantity_text(double quantity) {
  return automation::to_text(automation::Value(quantity));
}

}  // namespace tallyra::client
