#include "client/report/month_report.h"

#include <algorithm>
#include <cmath>
#include <set>

#include "automation/convert.h"
#include "client/month_end/sums.h"
#include "client/rounded.h"
#include "client/value_text.h"

namespace tallyra::client {
namespace {

struct Part {
  std::string name;
  MaterialType type;
};
using Parts = std::map<std::string, Part, std::less<>>;

// A line of a company document.
struct CompanyLine {
  double quantity = 0;
  double cost = 0;

  Figure figure() const { return {quantity, quantity * cost}; }
};
using CompanyLines = std::map<std::string, CompanyLine, std::less<>>;

MaterialType type_of(const automation::Value& value) {
  return value.is_null() ? MaterialType() : automation::to_int32(value);
}

std::string joined_lines(const std::string& columns, const std::string& condition) {
  return "Select " + columns +
         " From STKTRANHD Inner Join STKTRANDT On STKTRANHD.TRANNO=STKTRANDT.TRANNO Where " + condition;
}

Parts read_parts(const Reader& reader) {
  Parts parts;
  reader.each_row("Select PARTNO,PARTNM,MTYPESN From PARTS", [&](const Row& row) {
    parts.emplace(text_or_nothing(row[0]), Part{text_or_nothing(row[1]), type_of(row[2])});
  });
  return parts;
}

CompanyLines read_company(const Reader& reader, automation::Date close) {
  CompanyLines lines;
  reader.each_row(joined_lines("STKTRANDT.PARTNO,STKTRANDT.QTY,STKTRANDT.UPRICE",
                               "STKTRANHD.TRANTYPE='STKCLOSEALL' And STKTRANHD.TRANDT=" +
                                   reader.date_literal(automation::add_days(close, 1))),
                  [&](const Row& row) {
                    CompanyLine& line = lines[text_or_nothing(row[0])];
                    line.quantity += number_or_zero(row[1]);
                    line.cost = number_or_zero(row[2]);
                  });
  return lines;
}

// What the report is put together from.
struct Source {
  const Reader& reader;
  Parts parts;
  CompanyLines company;

  const Part& part(std::string_view number) const {
    static const Part unknown;
    const auto found = parts.find(number);
    return found == parts.end() ? unknown : found->second;
  }
  Figure valued(std::string_view number, double quantity) const {
    const auto found = company.find(number);
    return {quantity, found == company.end() ? 0 : quantity * found->second.cost};
  }
};

void read_departments(const Source& source, MonthReport& report) {
  std::map<std::string, DepartmentFigures, std::less<>> figures;
  source.reader.each_row(
      joined_lines("STKTRANHD.DEPTNOFR,STKTRANDT.PARTNO,STKTRANDT.QTY",
                   "STKTRANHD.TRANTYPE='STK027CLOSE' And STKTRANHD.TRANDT=" +
                       source.reader.date_literal(automation::add_days(report.close.date, 1))),
      [&](const Row& row) {
        const std::string part = text_or_nothing(row[1]);
        figures[key_text(row[0])].by_type[source.part(part).type] +=
            source.valued(part, number_or_zero(row[2]));
      });
  for (const Department& department : departments(source.reader)) {
    const auto found = figures.find(department.number);
    if (found != figures.end()) found->second.name = department.name;
  }
  for (auto& [number, department] : figures) {
    department.number = number;
    report.departments.push_back(std::move(department));
  }
}

void find_changes(const Source& source, const CompanyLines& before, MonthReport& report) {
  constexpr std::size_t shown = 12;
  std::set<std::string_view> numbers;
  for (const auto& [number, line] : source.company) numbers.insert(number);
  for (const auto& [number, line] : before) numbers.insert(number);
  const auto figure = [](const CompanyLines& lines, std::string_view number) {
    const auto found = lines.find(number);
    return found == lines.end() ? Figure() : found->second.figure();
  };
  for (const auto number : numbers) {
    PartChange change{std::string(number), source.part(number).name, figure(before, number),
                      figure(source.company, number)};
    if (!same_quantity(change.now.quantity, change.before.quantity) ||
        !same_quantity(change.now.value, change.before.value))
      report.changes.push_back(std::move(change));
  }
  std::ranges::stable_sort(report.changes, std::ranges::greater(), [](const PartChange& change) {
    const Figure by = change.now - change.before;
    return std::pair(std::fabs(by.value), std::fabs(by.quantity));
  });
  if (report.changes.size() > shown) report.changes.resize(shown);
}

void read_differences(const Source& source, const Period& period, MonthReport& report) {
  std::map<std::string, PostedDifference> found;
  source.reader.each_row(
      joined_lines("STKTRANHD.TRANNO,STKTRANHD.REFERENCE,STKTRANHD.DEPTNOFR,STKTRANHD.TRANDT,"
                   "STKTRANDT.PARTNO,STKTRANDT.QTY",
                   "STKTRANHD.TRANTYPE='STKCHECKISS'" + within(source.reader, period)),
      [&](const Row& row) {
        PostedDifference& posted = found[text_or_nothing(row[0]) + "\n" + text_or_nothing(row[1])];
        posted.document = text_or_nothing(row[0]);
        posted.stocktaking = text_or_nothing(row[1]);
        posted.department = key_text(row[2]);
        posted.date = automation::to_date(row[3]);
        ++posted.lines;
        posted.figure += source.valued(text_or_nothing(row[4]), number_or_zero(row[5]));
      });
  for (auto& [key, posted] : found) report.differences.push_back(std::move(posted));
  std::ranges::stable_sort(report.differences, {},
                           [](const PostedDifference& posted) { return posted.date.serial; });
}

void find_parts_without_cost(const Source& source, MonthReport& report) {
  for (const auto& [number, line] : source.company)
    if (line.cost == 0 && rounded(line.quantity, figure_decimals) != 0)
      report.without_cost.push_back({number, source.part(number).name, line.quantity});
}

}  // namespace

Figure Figure::shown() const {
  return {rounded(quantity, figure_decimals), rounded(value, figure_decimals)};
}

Figure DepartmentFigures::total() const {
  Figure sum;
  for (const auto& [type, figure] : by_type) sum += figure;
  return sum;
}

Figure MonthReport::total() const {
  Figure sum;
  for (const auto& department : departments) sum += department.total();
  return sum;
}

std::map<MaterialType, Figure> MonthReport::by_type() const {
  std::map<MaterialType, Figure> sums;
  for (const auto& department : departments)
    for (const auto& [type, figure] : department.by_type) sums[type] += figure;
  return sums;
}

MonthReport read_report(const Reader& reader, const std::vector<CloseRecord>& records,
                        const CloseRecord& close) {
  MonthReport report;
  report.close = close;
  const CloseRecord* const previous = record_before(records, close.date);
  if (previous) report.previous = previous->date;
  const Source source{reader, read_parts(reader), read_company(reader, close.date)};
  report.parts = source.company.size();
  reader.each_row("Select MTYPESN,MTYPENM From PARTCOSTSET",
                  [&](const Row& row) { report.type_names[type_of(row[0])] = text_or_nothing(row[1]); });
  read_departments(source, report);
  find_changes(source, previous ? read_company(reader, previous->date) : CompanyLines(), report);
  read_differences(source, period_of(records, close.date), report);
  find_parts_without_cost(source, report);
  return report;
}

}  // namespace tallyra::client
