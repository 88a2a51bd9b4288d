#include "bench/stock_check.h"

#include <stdexcept>

#include "automation/clock.h"
#include "automation/convert.h"
#include "bench/company.h"
#include "company/generator.h"

namespace tallyra::bench {
namespace {

using automation::Object;
using automation::ref;
using automation::Value;

// The sample company's only one, of the last day of its second month.
constexpr const char* check = "CK24020001";

// The posting has committed by itself, so the second commit of the approval is an error: its success shows in
// the adjustments that it has stored.
constexpr double no_transaction = -2147168242;

void approve(const std::string& database) {
  const automation::ScopedClock clock([] { return *automation::parse_date("2024/03/04 08:00:00"); });
  const Object head = session(database, "CCheckHead");
  Value names = collection({"STATUSSN"});
  Value values = collection({1});
  Value tag = "APPROVED";
  head.call("Update", check, ref(names), ref(values), ref(tag));
  const Value number = head.get("ErrNumber");
  if (!automation::equals_number(number, static_cast<double>(static_cast<float>(no_transaction))))
    throw std::runtime_error(automation::to_text(head.get("ErrDescription")));
}

std::uint64_t posted_lines(const std::string& database) {
  const std::uint64_t lines = count_rows(
      database, std::string("Select Count(*) As N From STKTRANDT Inner Join STKTRANHD On"
                            " STKTRANDT.TRANNO=STKTRANHD.TRANNO Where STKTRANHD.TRANTYPE='STKCHECKISS'"
                            " And STKTRANHD.REFERENCE='") +
                    check + "'");
  if (lines == 0) throw std::runtime_error("the approval has posted nothing");
  return lines;
}

}  // namespace

Scenario stock_check(int departments, int parts, int lines, int months, const std::string& schema) {
  Scenario scenario;
  scenario.name = "stock check";
  scenario.limit = 1.05;
  scenario.size =
      std::to_string(parts / 4) + " over " + std::to_string(lines) + ", " + std::to_string(months) + " mo.";
  scenario.prepare = [=](const std::string& database) {
    samples::company::Options options;
    options.database = database;
    options.schema = schema;
    options.departments = departments;
    options.parts = parts;
    options.lines = lines;
    options.months = months;
    samples::company::generate(options, [](int) {});
    settle(database);
  };
  scenario.run = [](const std::string& database) {
    approve(database);
    return posted_lines(database);
  };
  return scenario;
}

}  // namespace tallyra::bench
