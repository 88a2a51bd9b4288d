#include "tests/transcript/stockcheck/check_script.h"

namespace tallyra::stockcheck_test {
namespace {

TEST(StkrptFuns, GetCheckBalanceReturnsNoObjectAndAsksForNothing) {
  Stage stage;
  const Object reports = stage.client("CStkrptFuns");
  for (const char* statement : {"", "Select * From STKCHECKHD", "no statement"}) {
    const Value report = reports.call("GetCheckBalance", statement);
    ASSERT_TRUE(report.is_object()) << statement;
    EXPECT_FALSE(*report.get_if<Object>()) << statement;
    EXPECT_EQ(outcome_of(reports, 0), (Outcome{0, 0, ""}));
  }
  EXPECT_EQ(stage.transcript(), "");
}

}  // namespace
}  // namespace tallyra::stockcheck_test
