#include "client/month_end/verification.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "automation/convert.h"
#include "client/month_end/sums.h"
#include "client/rounded.h"
#include "client/value_text.h"

namespace tallyra::client {
namespace {

using Kind = Difference::Kind;

// What the documents of a department, or of the company, say of a part.
struct Written {
  double quantity = 0;
  int lines = 0;
};
using WrittenLines = std::map<std::string, Written, std::less<>>;

// What they should say, and what of it is nothing but rounding.
struct Expected {
  double quantity = 0;
  double rounding = 0;

  double figure() const { return std::fabs(quantity) <= rounding ? 0 : quantity; }
};
using Quantities = std::map<std::string, Expected, std::less<>>;

// What the company's document should say: the sums of what those of the departments do.
class CompanySums {
 public:
  void add(const WrittenLines& department) {
    for (const auto& [part, written] : department) {
      Sum& sum = sums_[part];
      sum.quantity += written.quantity;
      sum.magnitude += std::fabs(written.quantity);
      sum.lines += written.lines;
    }
  }
  Quantities quantities() const {
    constexpr double last_digit = std::numeric_limits<double>::epsilon();
    Quantities result;
    for (const auto& [part, sum] : sums_)
      result.emplace(part, Expected{sum.quantity, sum.lines * last_digit * sum.magnitude});
    return result;
  }

 private:
  struct Sum {
    double quantity = 0;
    double magnitude = 0;
    int lines = 0;
  };
  std::map<std::string, Sum, std::less<>> sums_;
};

std::string of_that_day(const Reader& reader, const Period& period, const std::string& type) {
  return " Where STKTRANHD.TRANTYPE='" + type +
         "' And STKTRANHD.TRANDT=" + reader.date_literal(period.documents_day());
}

// The documents of every department, by its number; that of the company by "".
std::map<std::string, std::vector<std::string>> documents_of(const Reader& reader, const Period& period,
                                                             const std::string& type) {
  std::map<std::string, std::vector<std::string>> documents;
  reader.each_row(
      "Select TRANNO,DEPTNOFR From STKTRANHD" + of_that_day(reader, period, type) + " Order By TRANNO",
      [&](const Row& row) { documents[key_text(row[1])].push_back(key_text(row[0])); });
  return documents;
}

WrittenLines lines_of(const Reader& reader, const std::vector<std::string>& documents) {
  WrittenLines lines;
  for (const std::string& document : documents)
    reader.each_row("Select PARTNO,QTY From STKTRANDT Where TRANNO=" + Reader::text_literal(document),
                    [&](const Row& row) {
                      Written& written = lines[shown_text(row[0])];
                      written.quantity += row[1].is_null() ? 0 : automation::to_double(row[1]);
                      ++written.lines;
                    });
  return lines;
}

// One set of documents against what they should hold.
class Comparison {
 public:
  Comparison(Verification& result, std::string department, std::vector<std::string> documents)
      : result_(result), department_(std::move(department)), documents_(std::move(documents)) {}

  void run(const Reader& reader, const Quantities& expected) {
    if (documents_.empty()) {
      if (!expected.empty()) add(Kind::no_document, {}, 0, 0);
      return;
    }
    result_.documents += documents_.size();
    written_ = lines_of(reader, documents_);
    if (documents_.size() > 1) add(Kind::second_document, {}, 0, 0);
    for (const auto& [part, written] : written_) compare_written(part, written, expected);
    for (const auto& [part, quantity] : expected)
      if (!written_.contains(part)) add(Kind::missing, part, 0, quantity.figure());
  }

  const WrittenLines& written() const { return written_; }

 private:
  void compare_written(const std::string& part, const Written& written, const Quantities& expected) {
    result_.lines += static_cast<std::size_t>(written.lines);
    const auto found = expected.find(part);
    const Expected sum = found == expected.end() ? Expected() : found->second;
    if (written.lines > 1) {
      add(Kind::doubled, part, written.quantity, sum.figure());
    } else if (found == expected.end()) {
      add(Kind::surplus, part, written.quantity, 0);
    } else if (!same_quantity(written.quantity, sum.quantity, sum.rounding)) {
      add(Kind::differs, part, written.quantity, sum.figure());
    }
  }

  void add(Kind kind, const std::string& part, double written, double expected) {
    std::string document;
    for (const std::string& one : documents_) document += (document.empty() ? "" : ", ") + one;
    result_.differences.push_back({kind, department_, document, part, written, expected});
  }

  Verification& result_;
  std::string department_;
  std::vector<std::string> documents_;
  WrittenLines written_;
};

Quantities quantities_of(const PartSums& sums) {
  Quantities quantities;
  for (const auto& [part, sum] : sums) quantities.emplace(part, Expected{sum.quantity(), sum.rounding()});
  return quantities;
}

// When the close was made: as its record says, else the end of the day that its documents bear.
std::optional<automation::Date> made_at(const Reader& reader, const CloseRecord& record,
                                        const Period& period) {
  if (record.made_at) return record.made_at;
  std::optional<automation::Date> made;
  reader.each_row(
      "Select Max(STKTRANHD.ADDDT) As MADE From STKTRANHD" + of_that_day(reader, period, "STK027CLOSE"),
      [&](const Row& row) {
        constexpr double last_second = 1 - 1.0 / 86400;
        if (!row[0].is_null()) made = {std::floor(automation::to_date(row[0]).serial) + last_second};
      });
  return made;
}

// Documents and lines that were there then.
std::string entered_by(const Reader& reader, automation::Date moment) {
  const std::string literal = reader.time_literal(moment);
  return " And (STKTRANHD.TRANTYPE='STK027CLOSE' Or ((STKTRANHD.ADDDT Is Null Or STKTRANHD.ADDDT<=" +
         literal + ") And (STKTRANDT.ADDDT Is Null Or STKTRANDT.ADDDT<=" + literal + ")))";
}

// Differences that were none when the close was made: without what was entered since, the line is right.
void explain(const PartSums& sums_then, std::vector<Difference>& differences, std::size_t first) {
  const Quantities then = quantities_of(sums_then);
  for (std::size_t i = first; i < differences.size(); ++i) {
    Difference& difference = differences[i];
    if (difference.kind != Kind::differs && difference.kind != Kind::missing) continue;
    const auto found = then.find(difference.part);
    const bool was_right = found == then.end() ? difference.kind == Kind::missing
                                               : difference.kind == Kind::differs &&
                                                     same_quantity(difference.written, found->second.quantity,
                                                                   found->second.rounding);
    if (was_right) difference.kind = Kind::entered_later;
  }
}

}  // namespace

const char* word_of(Kind kind) {
  switch (kind) {
    case Kind::differs: return "differs";
    case Kind::missing: return "missing";
    case Kind::surplus: return "surplus";
    case Kind::doubled: return "doubled";
    case Kind::second_document: return "second document";
    case Kind::no_document: return "no document";
    case Kind::entered_later: return "entered after the close";
  }
  return "";
}

bool Verification::sound() const {
  return std::ranges::all_of(
      differences, [](const Difference& difference) { return difference.kind == Kind::entered_later; });
}

double Difference::excess() const {
  return rounded_difference(written, expected);
}

Verification verify_close(const Reader& reader, const CloseRecord& record, const Period& period) {
  Verification result;
  auto by_department = documents_of(reader, period, "STK027CLOSE");
  CompanySums company;
  const auto made = made_at(reader, record, period);
  for (const Department& department : departments(reader)) {
    const std::size_t first = result.differences.size();
    Comparison comparison(result, department.number, by_department[department.number]);
    comparison.run(reader, quantities_of(sums_of(reader, department.number, period)));
    if (first != result.differences.size() && made)
      explain(sums_of(reader, department.number, period, entered_by(reader, *made)), result.differences,
              first);
    company.add(comparison.written());
    by_department.erase(department.number);
  }
  // Documents of departments that are gone from the masters.
  for (const auto& [number, documents] : by_department) {
    Comparison comparison(result, number, documents);
    comparison.run(reader, {});
    company.add(comparison.written());
  }
  std::vector<std::string> of_company;
  for (const auto& [number, documents] : documents_of(reader, period, "STKCLOSEALL"))
    of_company.insert(of_company.end(), documents.begin(), documents.end());
  Comparison(result, "company", of_company).run(reader, company.quantities());
  return result;
}

}  // namespace tallyra::client
