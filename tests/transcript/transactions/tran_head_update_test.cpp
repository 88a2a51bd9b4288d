#include "tests/transcript/transactions/transaction_script.h"

namespace tallyra::transactions_test {
namespace {

class TranHeadUpdate : public TransactionStage {
 protected:
  TranHeadUpdate() : TransactionStage("CTranHead") {}
};
TALLYRA_ON_BOTH_KINDS(TranHeadUpdate);

const std::string statement = "<GetUpdateSQL STKTRANHD> Where STKTRANHD.TRANNO='T1' ";

TEST_P(TranHeadUpdate, EachTagAsksForARightOfItsOwn) {
  const struct {
    const char* tag;
    const char* right;
  } rows[] = {{"APPROVED", "CanApproved"},
              {"UNAPPROVED", "CanUnapproved"},
              {"CANCEL", "CanCancel"},
              {"FINISHED", "CanFinished"}};
  for (const auto& [tag, right] : rows) {
    Stage granted(GetParam());
    granted.set(right, 1);
    EXPECT_EQ(update_head(granted.client("CTranHead"), "T1", "STK010POREV", fields, tag), done) << tag;
    EXPECT_EQ(granted.transcript().find("Owner"), std::string::npos) << tag;
    EXPECT_TRUE(granted.database_calls().ends_with("C1.Execute " + statement + " | -1\nC1.Close\n")) << tag;

    Stage denied(GetParam());
    for (const char* other : {"CanUpdate", "CanInsert", "CanDelete", "CanApproved", "CanUnapproved",
                              "CanCancel", "CanFinished", "Owner"})
      denied.set(other, 1);
    denied.set(right, 0);
    EXPECT_EQ(update_head(denied.client("CTranHead"), "T1", "STK010POREV", fields, tag), refused(10000016))
        << tag;
    EXPECT_EQ(denied.database_calls(), "") << tag;
    EXPECT_EQ(denied.transcript().find("Owner"), std::string::npos) << tag;
  }
}

TEST_P(TranHeadUpdate, WritesNumberAndTypeAsTheyStand) {
  stage.set("Owner", 1)
      .finds_nothing(
          "Select ADDBY from STKTRANHD WHERE STKTRANHD.TRANNO='O'Neil' AND STKTRANHD.TRANTYPE='lower'case'");
  update_head(client(), "O'Neil", "lower'case", fields);
  EXPECT_TRUE(
      tells("R1.Open Select ADDBY from STKTRANHD WHERE STKTRANHD.TRANNO='O'Neil' "
            "AND STKTRANHD.TRANTYPE='lower'case' | C1 3 1 -1"));
  EXPECT_TRUE(tells("C1.Execute <GetUpdateSQL STKTRANHD> Where STKTRANHD.TRANNO='O'Neil'  | -1"));
  EXPECT_TRUE(tells("rights.PowerCheck 'lower'case'"));
}

}  // namespace
}  // namespace tallyra::transactions_test
