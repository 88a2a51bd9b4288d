#include "client/month_end/finding.h"

#include "automation/clock.h"
#include "client/value_text.h"

namespace tallyra::client {
namespace {

void keep(std::vector<std::string>& first, std::size_t& count, std::string text) {
  if (++count <= first_rows) first.push_back(std::move(text));
}

void gather_department(const Department& department, const PartSums& sums, CloseCase::Gathered& gathered) {
  constexpr double rounding = 1e-9;
  for (const auto& [part, sum] : sums) {
    gathered.parts[part] = true;
    const std::string place = "department " + department.number + ", part " + part;
    if (sum.unknown())
      keep(gathered.unknown, gathered.unknown_count, place);
    else if (sum.quantity() < -rounding)
      keep(gathered.negative, gathered.negative_count, place + ": " + quantity_text(sum.quantity()));
  }
  if (!sums.empty()) gathered.plan.departments.push_back({department, sums.size()});
}

}  // namespace

CloseCase close_case(const Reader& reader, automation::Date date) {
  CloseCase result{
      reader, date, automation::today(), close_records(reader), {}, leftovers(reader), lock_holder(reader),
      {}};
  result.period = period_of(result.records, date);
  return result;
}

void gather(CloseCase& close) {
  for (const Department& department : departments(close.reader))
    gather_department(
        department,
        sums_of(close.reader, department.number, close.period, std::string(no_unapproved_close_documents)),
        close.gathered);
  close.gathered.plan.company_lines = close.gathered.parts.size();
}

Found found_rows(const Reader& reader, const std::string& query, const std::vector<std::string_view>& words) {
  Found found;
  reader.each_row(query, [&](const Row& row) {
    if (++found.count > static_cast<std::int64_t>(first_rows)) return;
    std::string text;
    for (std::size_t i = 0; i < row.size() && i < words.size(); ++i) {
      if (i != 0) text += ", ";
      text.append(words[i]).append(" ").append(row[i].is_null() ? "(none)" : key_text(row[i]));
    }
    found.first.push_back(std::move(text));
  });
  return found;
}

}  // namespace tallyra::client
