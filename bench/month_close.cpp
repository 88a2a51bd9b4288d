#include "bench/month_close.h"

#include "automation/clock.h"
#include "bench/session.h"

namespace tallyra::bench {
namespace {

using automation::Object;
using automation::ref;
using automation::Value;

void close_month(const std::string& connection_string, const char* date) {
  // The same day in every run, so that a replay sends the same statements.
  const automation::ScopedClock clock([] { return *automation::parse_date("2024/03/04 08:00:00"); });
  const Object close = session(connection_string, "CStockClose");
  Value names = collection({"CLOSEDT", "STATUSSN"});
  Value values = collection({date, 0});
  require_success(close, close.call("Insert", date, ref(names), ref(values)));
}

// The lines of the documents that the close has written are counted: they are its result.
std::uint64_t close_second_month(const std::string& connection_string) {
  close_month(connection_string, "2024/02/29");
  return count_rows(
      connection_string,
      "Select Count(*) As N From STKTRANDT Inner Join STKTRANHD On STKTRANDT.TRANNO=STKTRANHD.TRANNO "
      "Where STKTRANHD.TRANDT=#2024/03/01# And "
      "(STKTRANHD.TRANTYPE='STK027CLOSE' Or STKTRANHD.TRANTYPE='STKCLOSEALL')");
}

Scenario close_of(const CompanySize& size) {
  Scenario scenario;
  scenario.size = text_of(size);
  scenario.rounds = size.lines < 100'000 ? 21 : size.lines < 1'000'000 ? 7 : 3;
  scenario.run = close_second_month;
  return scenario;
}

const std::vector<std::string>& plain_indexes() {
  static const std::vector<std::string> statements{
      "DROP INDEX STKTRANHD_BY_NUMBER",
      "DROP INDEX STKTRANHD_BY_SOURCE",
      "DROP INDEX STKTRANHD_BY_TARGET",
      "DROP INDEX STKTRANHD_BY_TYPE",
      "DROP INDEX STKTRANDT_BY_NUMBER",
      "DROP INDEX STKTRANDT_BY_PART",
      "DROP INDEX STKTRANDT_BY_REFERENCE",
      "DELETE FROM sqlite_stat1",
      "ANALYZE sqlite_master",
      "CREATE INDEX PLAIN_HD_NUMBER ON STKTRANHD(TRANNO)",
      "CREATE INDEX PLAIN_HD_SOURCE ON STKTRANHD(DEPTNOFR, TRANDT)",
      "CREATE INDEX PLAIN_HD_TARGET ON STKTRANHD(DEPTNOTO, TRANDT)",
      "CREATE INDEX PLAIN_HD_TYPE ON STKTRANHD(TRANTYPE, TRANDT)",
      "CREATE INDEX PLAIN_DT_NUMBER ON STKTRANDT(TRANNO, SN)",
      "CREATE INDEX PLAIN_DT_PART ON STKTRANDT(PARTNO)",
  };
  return statements;
}

}  // namespace

void close_first_month(const std::string& connection_string) {
  close_month(connection_string, "2024/01/31");
}

Scenario month_close(Companies& companies, const CompanySize& size) {
  Scenario scenario = close_of(size);
  scenario.work = "month close";
  scenario.company = [&companies, size] { return companies.company(size); };
  return scenario;
}

Scenario month_close_on_plain_indexes(Companies& companies, const CompanySize& size) {
  Scenario scenario = close_of(size);
  scenario.work = "month close, plain indexes";
  scenario.company = [&companies, size] { return companies.changed(size, "plain", plain_indexes()); };
  return scenario;
}

Scenario month_close_on_server(ServerCompanies& companies, const CompanySize& size) {
  Scenario scenario = close_of(size);
  scenario.work = "month close on PostgreSQL";
  scenario.company = [&companies, size] { return companies.company(size); };
  scenario.replays = postgresql_replays();
  scenario.on_server = true;
  return scenario;
}

}  // namespace tallyra::bench
