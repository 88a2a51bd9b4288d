#include "tests/support/record_methods.h"
#include "tests/transcript/stockcheck/check_script.h"

// What the un-approval of a stocktaking does beside the update of its header.
namespace tallyra::stockcheck_test {
namespace {

class CheckHeadUnapproval : public CheckStage {
 protected:
  Outcome unapprove() {
    return stage::play_record(stage.client("CCheckHead"), "Update", "S1", fields, "UNAPPROVED");
  }
};
TALLYRA_ON_EVERY_KIND(CheckHeadUnapproval);

const std::string change = "C1.Execute <GetUpdateSQL STKCHECKHD> Where STKCHECKHD.CHECKNO='S1'  | -1\n";

TEST_P(CheckHeadUnapproval, UnapprovalTakesLinesThenHeadersOfEveryPostingAway) {
  stage.set("CanUnapproved", 1);
  EXPECT_EQ(unapprove(), done);
  EXPECT_TRUE(stage.database_calls().ends_with(
      "C1.BeginTrans\n" + change +
      "C1.Execute Delete STKTRANDT.* From STKTRANDT INNER JOIN STKTRANHD ON STKTRANDT.TRANNO=STKTRANHD.TRANNO"
      " WHERE STKTRANHD.TRANTYPE='STKCHECKISS' AND STKTRANHD.REFERENCE='S1' | -1\n"
      "C1.Execute DELETE * FROM STKTRANHD WHERE STKTRANHD.TRANTYPE='STKCHECKISS' AND"
      " STKTRANHD.REFERENCE='S1' | -1\n"
      "C1.CommitTrans\n"
      "C1.Close\n"));
}

TEST_P(CheckHeadUnapproval, AFailingUnapprovalIsNeitherCommittedNorRolledBack) {
  stage.set("CanUnapproved", 1).fails("DELETE * FROM", Error(-2147467259, "locked"));
  EXPECT_EQ(unapprove(), trapped(-2147467259, "locked"));
  EXPECT_TRUE(stage.database_calls().ends_with(" ! locked\n"));
  EXPECT_EQ(stage.transcript().find("CommitTrans"), std::string::npos);
  EXPECT_EQ(stage.transcript().find("RollbackTrans"), std::string::npos);
}

}  // namespace
}  // namespace tallyra::stockcheck_test
