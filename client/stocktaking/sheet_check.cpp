#include <map>
#include <set>

#include "automation/clock.h"
#include "client/month_end/period.h"
#include "client/month_end/sums.h"
#include "client/stocktaking/count_sheet.h"
#include "client/value_text.h"

namespace tallyra::client {
namespace {

// The part numbers of the master. What is spelled otherwise is asked of the engine, which may take it for the
// same.
class PartMaster {
 public:
  explicit PartMaster(const Reader& reader) : reader_(reader) {
    reader.each_row("Select PARTNO From PARTS", [&](const Row& row) { known_.insert(shown_text(row[0])); });
  }

  // As the master spells it; nothing for a part that it lacks.
  std::optional<std::string> spelling(const std::string& part) const {
    if (known_.contains(part)) return part;
    std::optional<std::string> found;
    reader_.each_row("Select PARTNO From PARTS Where PARTNO=" + Reader::text_literal(part),
                     [&](const Row& row) { found = shown_text(row[0]); });
    return found;
  }

 private:
  const Reader& reader_;
  std::set<std::string> known_;
};

void check_parts(const Reader& reader, CountSheet& sheet, SheetErrors& errors) {
  const PartMaster master(reader);
  std::map<std::string, std::size_t> first_lines;
  for (CountedLine& line : sheet.lines) {
    if (line.part.empty()) continue;
    const auto part = master.spelling(line.part);
    if (!part) {
      errors.push_back({line.line, "there is no part " + line.part});
      continue;
    }
    line.part = *part;
    const auto [first, is_first] = first_lines.emplace(*part, line.line);
    if (!is_first)
      errors.push_back({line.line, "part " + *part + " was counted on line " + std::to_string(first->second) +
                                       " already"});
  }
}

void check_department(const Reader& reader, const CountSheet& sheet, SheetErrors& errors) {
  if (sheet.department.empty()) {
    errors.push_back({0, "no department: give one by --department or in a column 'department'"});
    return;
  }
  if (reader.count("Select Count(*) As N From DEPARTS Where DEPTNO=" +
                   Reader::text_literal(sheet.department)) == 0)
    errors.push_back({0, "there is no department " + sheet.department});
}

std::string day_of(automation::Date date) {
  std::string text;
  automation::append_day(text, date);
  return text;
}

void check_day(const Reader& reader, const CountSheet& sheet, SheetErrors& errors) {
  if (!sheet.day) {
    errors.push_back({0, "no date: give one by --date or in a column 'date'"});
    return;
  }
  if (sheet.day->serial > automation::today().serial)
    errors.push_back({0, day_of(*sheet.day) + " lies in the future: what is counted then nobody knows yet"});
  const auto records = close_records(reader);
  if (records.empty() || records.back().date.serial < sheet.day->serial) return;
  errors.push_back(
      {0, day_of(*sheet.day) + " is closed: the latest close is that of " + day_of(records.back().date)});
}

}  // namespace

void check_sheet(const Reader& reader, CountSheet& sheet, SheetErrors& errors) {
  check_department(reader, sheet, errors);
  check_day(reader, sheet, errors);
  check_parts(reader, sheet, errors);
}

}  // namespace tallyra::client
