#include "tests/transcript/transactions/transaction_stage.h"

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

TEST_P(TranHeadUpdate, ChangesTheHeaderOfThatNumberWithoutTransaction) {
  stage.set("CanUpdate", 1);
  EXPECT_EQ(play(), done);
  EXPECT_EQ(stage.database_calls(),
            "C1.State\n"
            "C1.Open 'DSN=x' '' '' -1\n"
            "R1.CursorLocation = 2\n"
            "R1.Open Select top 1 * From STKTRANHD | C1 3 1 -1\n"
            "R1.Close\n"
            "C1.Execute " +
                statement +
                " | -1\n"
                "C1.Close\n");
  EXPECT_TRUE(
      stage.rights_calls().ends_with("rights.PowerCheck 'STK010POREV'\n"
                                     "rights.CanUpdate\n"
                                     "rights.GetUpdateSQL 'STKTRANHD' object object R1\n"
                                     "rights.ErrNumber\n"));
}

TEST_P(TranHeadUpdate, TestsTheCollectionsBeforeAnyRight) {
  const Object object = client();
  Fields none;
  Fields uneven{{"QTY", 5}};
  Fields::add(uneven.values, 6);
  update_head(object, "T1", "", none);
  for (Fields* each : {&none, &uneven}) {
    stage.clear();
    EXPECT_EQ(update_head(object, "T1", "STK010POREV", *each, "APPROVED"), refused(10000002));
    EXPECT_EQ(stage.database_calls() + stage.rights_calls(), "");
  }
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

TEST_P(TranHeadUpdate, OnlyTheNumberOneIsARight) {
  for (const Value& right : no_rights) {
    stage.set("CanUpdate", right).set("Owner", right);
    EXPECT_EQ(play(), refused(10000016)) << stage::shown(right);
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
    EXPECT_EQ(other.database_calls(),
              "C1.Open 'DSN=x' '' '' -1\n"
              "R1.CursorLocation = 2\n"
              "R1.Open " +
                  owner_query +
                  " | C1 3 1 -1\n"
                  "R1.MoveLast\n"
                  "R1.Close\n"
                  "C1.State\n"
                  "R1.CursorLocation = 2\n"
                  "R1.Open Select top 1 * From STKTRANHD | C1 3 1 -1\n"
                  "R1.Close\n"
                  "C1.Execute " +
                  statement +
                  " | -1\n"
                  "C1.Close\n");
  }
}

TEST_P(TranHeadUpdate, AnOwnerTestThatFindsNoHeaderPasses) {
  stage.set("Owner", 1);
  EXPECT_EQ(play(), done);
  EXPECT_EQ(stage.database_calls(),
            "C1.Open 'DSN=x' '' '' -1\n"
            "R1.CursorLocation = 2\n"
            "R1.Open " +
                owner_query +
                " | C1 3 1 -1\n"
                "R1.Close\n"
                "C1.State\n"
                "R1.CursorLocation = 2\n"
                "R1.Open Select top 1 * From STKTRANHD | C1 3 1 -1\n"
                "R1.Close\n"
                "C1.Execute " +
                statement +
                " | -1\n"
                "C1.Close\n");
}

TEST_P(TranHeadUpdate, WhoDidNotCreateTheHeaderIsRefusedWithEverythingClosed) {
  for (const Value& owner : {Value("OTHER"), Value("tester"), Value("TESTER X"), Value("")}) {
    Stage other(GetParam());
    other.set("Owner", 1).finds(owner_query, {{"ADDBY"}, {{owner}}});
    EXPECT_EQ(update_head(other.client("CTranHead"), "T1", "STK010POREV", fields), refused(10000016));
    EXPECT_EQ(other.database_calls(),
              "C1.Open 'DSN=x' '' '' -1\n"
              "R1.CursorLocation = 2\n"
              "R1.Open " +
                  owner_query +
                  " | C1 3 1 -1\n"
                  "R1.MoveLast\n"
                  "R1.Close\n"
                  "C1.Close\n");
  }
}

TEST_P(TranHeadUpdate, ABuilderErrorIsCopiedAndNothingIsExecuted) {
  stage.set("CanUpdate", 1).set("rights.ErrNumber", 77).set("rights.ErrDescription", "no such column");
  EXPECT_EQ(play(), trapped(77, "no such column"));
  EXPECT_TRUE(stage.database_calls().ends_with("R1.Close\nC1.Close\n"));
  EXPECT_EQ(stage.transcript().find("Execute"), std::string::npos);
}

TEST_P(TranHeadUpdate, AnErrorOfTheDatabaseComesBackWithTheConnectionLetGo) {
  stage.set("CanUpdate", 1).fails("Execute", Error(-2147217900, "syntax"));
  EXPECT_EQ(play(), trapped(-2147217900, "syntax"));
  EXPECT_TRUE(stage.database_calls().ends_with("C1.Execute " + statement + " | -1 ! syntax\n"));
}

TEST_P(TranHeadUpdate, WritesNumberAndTypeAsTheyStand) {
  stage.set("Owner", 1);
  update_head(client(), "O'Neil", "lower'case", fields);
  EXPECT_TRUE(
      tells("R1.Open Select ADDBY from STKTRANHD WHERE STKTRANHD.TRANNO='O'Neil' "
            "AND STKTRANHD.TRANTYPE='lower'case' | C1 3 1 -1"));
  EXPECT_TRUE(tells("C1.Execute <GetUpdateSQL STKTRANHD> Where STKTRANHD.TRANNO='O'Neil'  | -1"));
  EXPECT_TRUE(tells("rights.PowerCheck 'lower'case'"));
}

}  // namespace
}  // namespace tallyra::transactions_test
