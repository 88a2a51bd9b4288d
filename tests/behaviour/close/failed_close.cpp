#include "tests/behaviour/close/failed_close.h"

#include <algorithm>

namespace tallyra::behaviour {

using stage::done;

FailedClose::FailedClose() {
  EXPECT_EQ(company.close("2024/01/31"), done);
  EXPECT_EQ(company.approve("2024/01/31"), done);
  before_ = company.everything();
  EXPECT_EQ(close(), done);
  undisturbed_ = documents();
  EXPECT_EQ(remove(), done);
  EXPECT_EQ(company.everything(), before_);
}

std::string FailedClose::documents() const {
  return company.department_lines("2024-03-01") + company.company_lines("2024-03-01") +
         company.rows("SELECT CLOSEDT, STATUSSN FROM STKCLOSEHD");
}

std::string FailedClose::left() const {
  std::string counts = company.rows(
      "SELECT Sum(CASE WHEN TRANTYPE='STK027CLOSE' THEN 1 ELSE 0 END)||' departments, '||"
      "Sum(CASE WHEN TRANTYPE='STKCLOSEALL' THEN 1 ELSE 0 END)||' company, '||"
      "(SELECT Count(*) FROM STKCLOSEHD WHERE CLOSEDT='2024-02-29 00:00:00')||' record' "
      "FROM STKTRANHD WHERE TRANDT='2024-03-01 00:00:00' AND TRANTYPE LIKE 'STK%CLOSE%'");
  counts.pop_back();
  return counts == "NULL" ? "nothing" : counts;
}

bool FailedClose::has_record() const {
  const automation::Object object = company.client("CStockClose");
  stage::Fields fields;
  const stage::Outcome outcome = stage::outcome_of(
      object,
      object.call("Read", "2024/02/29", automation::ref(fields.names), automation::ref(fields.values)));
  EXPECT_EQ(outcome.result, 100) << outcome;
  return outcome.number == 0;
}

void FailedClose::expect_mended() const {
  if (has_record()) {
    EXPECT_EQ(remove(), done);
  }
  EXPECT_EQ(close(), done);
  EXPECT_EQ(documents(), undisturbed_);
  EXPECT_EQ(remove(), done);
  EXPECT_EQ(company.everything(), before_) << "January is as it was";
}

void StepTable::add(int step, const std::string& call, const std::string& state) {
  if (state == last_) return;
  // Without what changes from run to run, or is long.
  const std::string told = call.substr(0, call.find_first_of("(="));
  text_ += std::to_string(step) + " " + told.substr(0, std::min(told.find(" WHERE "), told.find(" Where "))) +
           ": " + state + "\n";
  last_ = state;
}

}  // namespace tallyra::behaviour
