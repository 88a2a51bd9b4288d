#include "tests/transcript/transactions/transaction_script.h"

namespace tallyra::transactions_test {
namespace {

class TranHeadUpdate : public TransactionStage {
 protected:
  TranHeadUpdate() : TransactionStage("CTranHead") {}
  Outcome play(const char* tag = "") { return update_head(client(), "T1", "STK010POREV", fields, tag); }
};
TALLYRA_ON_BOTH_KINDS(TranHeadUpdate);

const std::string owner_query =
    "Select ADDBY from STKTRANHD WHERE STKTRANHD.TRANNO='T1' AND STKTRANHD.TRANTYPE='STK010POREV'";
const std::string statement = "<GetUpdateSQL STKTRANHD> Where STKTRANHD.TRANNO='T1' ";
const std::string written = "R1.CursorLocation = 2\n" + asked("Select top 1 * From STKTRANHD") +
                            "C1.Execute " + statement + " | -1\nC1.Close\n";

TEST_P(TranHeadUpdate, ChangesTheHeaderOfThatNumberWithoutTransaction) {
  stage.set("CanUpdate", 1);
  EXPECT_EQ(play(), done);
  EXPECT_EQ(stage.database_calls(), "C1.State\nC1.Open 'DSN=x' '' '' -1\n" + written);
  EXPECT_TRUE(
      stage.rights_calls().ends_with("rights.PowerCheck 'STK010POREV'\n"
                                     "rights.CanUpdate\n"
                                     "rights.GetUpdateSQL 'STKTRANHD' object object R1\n"
                                     "rights.ErrNumber\n"));
}

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

TEST_P(TranHeadUpdate, AnyOtherTagIsAnOrdinaryEdit) {
  for (const char* tag : {"approved", "Approved", "APPROVED ", "UNCANCEL", "x", ""}) {
    Stage granted(GetParam());
    granted.set("CanUpdate", 1);
    EXPECT_EQ(update_head(granted.client("CTranHead"), "T1", "STK010POREV", fields, tag), done) << tag;
    EXPECT_NE(granted.rights_calls().find("rights.PowerCheck 'STK010POREV'\nrights.CanUpdate\n"),
              std::string::npos)
        << tag;
  }
}

TEST_P(TranHeadUpdate, OnlyTheNumberOneIsARightForATag) {
  for (const Value& right : no_rights) {
    stage.set("CanApproved", right);
    EXPECT_EQ(play("APPROVED"), refused(10000016)) << stage::shown(right);
  }
  EXPECT_EQ(stage.database_calls(), "");
}

TEST_P(TranHeadUpdate, AnOwnerGoesOnOverTheSameConnection) {
  for (const char* owner : {"TESTER", " TESTER  "}) {
    Stage other(GetParam());
    other.set("Owner", 1).finds(owner_query, {{"ADDBY"}, {{owner}}});
    EXPECT_EQ(update_head(other.client("CTranHead"), "T1", "STK010POREV", fields), done);
    EXPECT_EQ(other.database_calls(), opened + asked_to_the_end(owner_query) + "C1.State\n" + written);
  }
}

TEST_P(TranHeadUpdate, AnErrorOfTheDatabaseComesBackWithTheConnectionLetGo) {
  stage.set("CanUpdate", 1).fails("Execute", Error(-2147217900, "syntax"));
  EXPECT_EQ(play(), trapped(-2147217900, "syntax"));
  EXPECT_TRUE(stage.database_calls().ends_with("C1.Execute " + statement + " | -1 ! syntax\n"));
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
