#include "tests/transcript/transactions/transaction_script.h"

namespace tallyra::transactions_test {
namespace {

const std::string existing = "Select * From STKTRANHD where TRANNO='T1'";
const std::string lines = "SELECT * FROM STKTRANDT WHERE TRANNO='T0'";
const std::vector<std::string> no_document{existing, lines};

class TranHeadInsert : public TransactionStage {
 protected:
  TranHeadInsert() : TransactionStage("CTranHead", no_document) { stage.set("CanInsert", 1); }
  Outcome play(const Value& copied = omitted) {
    return insert_head(client(), "T1", "STK010POREV", fields, copied);
  }
};
TALLYRA_ON_BOTH_KINDS(TranHeadInsert);

const std::string created = opened + asked(existing) +
                            "C1.BeginTrans\n"
                            "C1.Execute <GetInsertSQL STKTRANHD> | -1\n";
TEST_P(TranHeadInsert, CreatesTheHeaderAloneWhenNothingIsCopied) {
  for (const Value& copied : {omitted, Value("")}) {
    Stage other(GetParam(), no_document);
    other.set("CanInsert", 1);
    EXPECT_EQ(insert_head(other.client("CTranHead"), "T1", "STK010POREV", fields, copied), done);
    EXPECT_EQ(other.database_calls(), created + "C1.CommitTrans\nC1.Close\n");
    EXPECT_TRUE(
        other.rights_calls().ends_with("rights.PowerCheck 'STK010POREV'\n"
                                       "rights.CanInsert\n"
                                       "rights.GetInsertSQL 'STKTRANHD' object object R1\n"
                                       "rights.ErrNumber\n"));
  }
}

TEST_P(TranHeadInsert, ACopyOfADocumentWithoutLinesCreatesTheHeaderAlone) {
  EXPECT_EQ(play("T0"), done);
  EXPECT_EQ(stage.database_calls(), created + "R1.Open " + lines +
                                        " | C1 3 1 -1\n"
                                        "R1.Close\n"
                                        "C1.CommitTrans\n"
                                        "C1.Close\n");
}

TEST_P(TranHeadInsert, NoFailureIsRolledBackTheConnectionIsLetGo) {
  for (const char* failing :
       {"BeginTrans", "<GetInsertSQL", "R1.Open SELECT * FROM STKTRANDT", "INSERT INTO", "CommitTrans"}) {
    Stage each(GetParam(), no_document);
    each.set("CanInsert", 1).fails(failing, Error(-2147217900, "locked"));
    each.finds(lines, {{"TRANNO", "REFERENCE", "SN", "PARTNO", "REFPARTNO", "MONO", "QTY", "VQTY", "UPRICE",
                        "NOTES"},
                       {{"T0", "", 1, "P1", "", "", 1, 0, 0, ""}}});
    EXPECT_EQ(insert_head(each.client("CTranHead"), "T1", "STK010POREV", fields, "T0"),
              trapped(-2147217900, "locked"))
        << failing;
    EXPECT_TRUE(each.database_calls().ends_with(" ! locked\n")) << failing;
    EXPECT_EQ(each.transcript().find("RollbackTrans"), std::string::npos) << failing;
  }
}

TEST_P(TranHeadInsert, ABlankNumberIsNotAnEmptyOne) {
  stage.finds_nothing("SELECT * FROM STKTRANDT WHERE TRANNO=' '");
  EXPECT_EQ(play(" "), done);
  EXPECT_TRUE(tells("R1.Open SELECT * FROM STKTRANDT WHERE TRANNO=' ' | C1 3 1 -1"));
}

}  // namespace
}  // namespace tallyra::transactions_test
