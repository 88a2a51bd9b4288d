#include "tests/transcript/transactions/transaction_script.h"

namespace tallyra::transactions_test {
namespace {

class TranHeadDelete : public TransactionStage {
 protected:
  TranHeadDelete() : TransactionStage("CTranHead") {}
  Outcome play() { return delete_head(client(), "T1", "STK010POREV"); }
};
TALLYRA_ON_BOTH_KINDS(TranHeadDelete);

const std::string owner_query = "Select ADDBY from STKTRANHD WHERE TRANNO='T1'";
const std::string deletions =
    "C1.BeginTrans\n"
    "C1.Execute Delete From STKTRANHD Where TRANNO='T1' | -1\n"
    "C1.Execute Delete From STKTRANDT Where TRANNO='T1' | -1\n"
    "C1.Execute Delete From STKSHIPNOTE Where TRANNO='T1' | -1\n"
    "C1.CommitTrans\n"
    "C1.Close\n";

TEST_P(TranHeadDelete, ClearsThreeTablesInOneTransaction) {
  stage.set("CanDelete", 1);
  EXPECT_EQ(play(), done);
  EXPECT_EQ(stage.database_calls(),
            "C1.State\n"
            "C1.Open 'DSN=x' '' '' -1\n" +
                deletions);
  EXPECT_TRUE(stage.rights_calls().ends_with("rights.PowerCheck 'STK010POREV'\nrights.CanDelete\n"));
}

TEST_P(TranHeadDelete, AnOwnerGoesOnOverTheSameConnectionWhateverTheType) {
  stage.set("Owner", 1).finds(owner_query, {{"ADDBY"}, {{"TESTER "}}});
  EXPECT_EQ(play(), done);
  EXPECT_EQ(stage.database_calls(), opened + asked_to_the_end(owner_query) + "C1.State\n" + deletions);
}

TEST_P(TranHeadDelete, RollsBackAndClosesWhicheverStatementFails) {
  for (const char* failing : {"BeginTrans", "STKTRANHD", "STKTRANDT", "STKSHIPNOTE", "CommitTrans"}) {
    Stage other(GetParam());
    other.set("CanDelete", 1).fails(failing, Error(-2147217900, "locked"));
    EXPECT_EQ(delete_head(other.client("CTranHead"), "T1", "STK010POREV"), trapped(-2147217900, "locked"));
    EXPECT_TRUE(other.database_calls().ends_with(" ! locked\nC1.RollbackTrans\nC1.Close\n")) << failing;
  }
}

TEST_P(TranHeadDelete, DoesNotRollBackBeforeTheTransactionHandlerIsArmed) {
  stage.set("CanDelete", 1).fails("C1.Open", Error(-2147467259, "no such file"));
  EXPECT_EQ(play(), trapped(-2147467259, "no such file"));
  EXPECT_TRUE(stage.database_calls().ends_with("! no such file\n"));
}

}  // namespace
}  // namespace tallyra::transactions_test
