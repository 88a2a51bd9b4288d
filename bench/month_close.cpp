#include "bench/month_close.h"

#include <stdexcept>

#include "automation/clock.h"
#include "bench/company.h"
#include "company/generator.h"

namespace tallyra::bench {
namespace {

using automation::Object;
using automation::ref;
using automation::Value;

constexpr const char* first_month_end = "2024/01/31";
constexpr const char* second_month_end = "2024/02/29";

void close_month(const std::string& database, const char* date) {
  // The same day in every run, so that a replay sends the same statements.
  const automation::ScopedClock clock([] { return *automation::parse_date("2024/03/04 08:00:00"); });
  const Object close = session(database, "CStockClose");
  Value names = collection({"CLOSEDT", "STATUSSN"});
  Value values = collection({date, 0});
  require_success(close, close.call("Insert", date, ref(names), ref(values)));
}

}  // namespace

Scenario month_close(int departments, int parts, int lines, const std::string& schema) {
  Scenario scenario;
  scenario.name = "month close";
  if (lines >= 100'000) scenario.limit = 1.05;
  scenario.size = std::to_string(departments) + " x " + std::to_string(parts) + " x " + std::to_string(lines);
  scenario.prepare = [=](const std::string& database) {
    samples::company::Options options;
    options.database = database;
    options.schema = schema;
    options.departments = departments;
    options.parts = parts;
    options.lines = lines;
    options.months = 2;
    samples::company::generate(options, [](int) {});
    close_month(database, first_month_end);
    settle(database);
  };
  scenario.run = [](const std::string& database) -> std::uint64_t {
    close_month(database, second_month_end);
    return count_rows(
        database,
        "Select Count(*) As N From STKTRANDT Inner Join STKTRANHD On STKTRANDT.TRANNO=STKTRANHD.TRANNO "
        "Where STKTRANHD.TRANDT=#2024/03/01# And "
        "(STKTRANHD.TRANTYPE='STK027CLOSE' Or STKTRANHD.TRANTYPE='STKCLOSEALL')");
  };
  return scenario;
}

}  // namespace tallyra::bench
