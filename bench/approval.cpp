#include "bench/approval.h"

#include <stdexcept>

#include "automation/clock.h"
#include "automation/convert.h"
#include "bench/session.h"

namespace tallyra::bench {
namespace {

using automation::Object;
using automation::ref;
using automation::Value;

// The sample company's only one, of the last day of its second month.
constexpr const char* check = "CK24020001";

// The posting has committed by itself, so the second commit of the approval is an error: its success shows in
// the lines of the posting that it has stored.
constexpr double no_transaction = -2147168242;

void approve(const std::string& connection_string) {
  const automation::ScopedClock clock([] { return *automation::parse_date("2024/03/04 08:00:00"); });
  const Object head = session(connection_string, "CCheckHead");
  Value names = collection({"STATUSSN"});
  Value values = collection({1});
  Value tag = "APPROVED";
  head.call("Update", check, ref(names), ref(values), ref(tag));
  const Value number = head.get("ErrNumber");
  if (!automation::equals_number(number, static_cast<double>(static_cast<float>(no_transaction))))
    throw std::runtime_error(automation::to_text(head.get("ErrDescription")));
}

std::uint64_t posted_lines(const std::string& connection_string) {
  const std::uint64_t lines =
      count_rows(connection_string,
                 std::string("Select Count(*) As N From STKTRANDT Inner Join STKTRANHD On"
                             " STKTRANDT.TRANNO=STKTRANHD.TRANNO Where STKTRANHD.TRANTYPE='STKCHECKISS'"
                             " And STKTRANHD.REFERENCE='") +
                     check + "'");
  if (lines == 0) throw std::runtime_error("the approval has posted nothing");
  return lines;
}

}  // namespace

Scenario approval(Companies& companies, const CompanySize& size) {
  constexpr int parts_per_counted_line = 4;
  Scenario scenario;
  scenario.work = "approval";
  scenario.size = with_commas(size.parts / parts_per_counted_line) + " lines over " + with_commas(size.lines);
  scenario.rounds = size.lines < 1'000'000 ? 21 : 5;
  scenario.company = [&companies, size] { return companies.company(size); };
  scenario.run = [](const std::string& connection_string) {
    approve(connection_string);
    return posted_lines(connection_string);
  };
  return scenario;
}

}  // namespace tallyra::bench
