#include "client/month_end/leftovers.h"

#include <cmath>
#include <set>

#include "automation/convert.h"
#include "client/month_end/period.h"
#include "client/month_end/sums.h"

namespace tallyra::client {
namespace {

std::string counted(std::int64_t count, const char* one, const char* many) {
  return std::to_string(count) + " " + (count == 1 ? one : many);
}

}  // namespace

std::vector<Leftover> leftovers(const Reader& reader) {
  const auto records = close_records(reader);
  std::vector<Leftover> left;
  const std::string unapproved = "Select TRANNO,TRANTYPE,DEPTNOFR,TRANDT From STKTRANHD Where " +
                                 std::string(close_documents_only) + " And STATUSSN=0 Order By TRANDT,TRANNO";
  reader.each_row(unapproved, [&](const Row& row) {
    Leftover document;
    document.document = key_text(row[0]);
    document.of_company = automation::to_text(row[1]) == "STKCLOSEALL";
    document.department = key_text(row[2]);
    const automation::Date day{std::floor(automation::to_date(row[3]).serial)};
    document.close_date = automation::add_days(day, -1);
    if (!find_record(records, document.close_date)) left.push_back(std::move(document));
  });
  for (Leftover& document : left)
    document.lines = reader.count("Select Count(*) As N From STKTRANDT Where TRANNO=" +
                                  Reader::text_literal(document.document));
  return left;
}

std::vector<automation::Date> dates_of(const std::vector<Leftover>& left) {
  std::set<double> serials;
  for (const Leftover& document : left) serials.insert(document.close_date.serial);
  std::vector<automation::Date> dates;
  dates.reserve(serials.size());
  for (const double serial : serials) dates.push_back({serial});
  return dates;
}

std::string leftovers_text(const std::vector<Leftover>& left) {
  std::int64_t lines = 0;
  for (const Leftover& document : left) lines += document.lines;
  std::string text = counted(static_cast<std::int64_t>(left.size()), "document", "documents") + " with " +
                     counted(lines, "line", "lines") + " for ";
  const char* separator = "";
  for (const automation::Date date : dates_of(left)) {
    text += separator;
    automation::append_day(text, date);
    separator = ", ";
  }
  return text;
}

}  // namespace tallyra::client
