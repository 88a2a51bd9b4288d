#include "tests/transcript/stockcheck/check_stage.h"

// Changing headers of stocktakings, and the status operations but for what the approval posts.
namespace tallyra::stockcheck_test {
namespace {

class CheckHeadUpdate : public CheckStage {};
TALLYRA_ON_EVERY_KIND(CheckHeadUpdate);

const std::string owner_query = "Select ADDBY from STKCHECKHD WHERE STKCHECKHD.CHECKNO='S1'";
const std::string structure =
    "R1.CursorLocation = 2\n"
    "R1.Open Select top 1 * From STKCHECKHD | C1 3 1 -1\n"
    "R1.Close\n";
const std::string change = "C1.Execute <GetUpdateSQL STKCHECKHD> Where STKCHECKHD.CHECKNO='S1'  | -1\n";

TEST_P(CheckHeadUpdate, AnEditIsOneStatementInATransaction) {
  stage.set("CanUpdate", 1);
  EXPECT_EQ(update_head(""), done);
  EXPECT_EQ(stage.database_calls(),
            "C1.State\n"
            "C1.Open 'DSN=x' '' '' -1\n" +
                structure + "C1.BeginTrans\n" + change +
                "C1.CommitTrans\n"
                "C1.Close\n");
  EXPECT_TRUE(
      stage.rights_calls().ends_with("rights.PowerCheck 'STK026CHECK'\n"
                                     "rights.CanUpdate\n"
                                     "rights.GetUpdateSQL 'STKCHECKHD' object object R1\n"
                                     "rights.ErrNumber\n"));
}

TEST_P(CheckHeadUpdate, CancellingAndFinishingDoNothingMore) {
  for (const auto& [tag, right] : {std::pair{"CANCEL", "CanCancel"}, std::pair{"FINISHED", "CanFinished"}}) {
    Stage each(GetParam());
    each.set(right, 1);
    const Object head = each.client("CCheckHead");
    Value operation = tag;
    EXPECT_EQ(
        outcome_of(head, head.call("Update", "S1", ref(fields.names), ref(fields.values), ref(operation))),
        done);
    EXPECT_TRUE(each.database_calls().ends_with("C1.BeginTrans\n" + change + "C1.CommitTrans\nC1.Close\n"))
        << tag;
  }
}

TEST_P(CheckHeadUpdate, UnapprovalTakesLinesThenHeadersOfEveryPostingAway) {
  stage.set("CanUnapproved", 1);
  EXPECT_EQ(update_head("UNAPPROVED"), done);
  EXPECT_TRUE(stage.database_calls().ends_with(
      "C1.BeginTrans\n" + change +
      "C1.Execute Delete STKTRANDT.* From STKTRANDT INNER JOIN STKTRANHD ON STKTRANDT.TRANNO=STKTRANHD.TRANNO"
      " WHERE STKTRANHD.TRANTYPE='STKCHECKISS' AND STKTRANHD.REFERENCE='S1' | -1\n"
      "C1.Execute DELETE * FROM STKTRANHD WHERE STKTRANHD.TRANTYPE='STKCHECKISS' AND"
      " STKTRANHD.REFERENCE='S1' | -1\n"
      "C1.CommitTrans\n"
      "C1.Close\n"));
}

TEST_P(CheckHeadUpdate, AFailingUnapprovalIsNeitherCommittedNorRolledBack) {
  stage.set("CanUnapproved", 1).fails("DELETE * FROM", Error(-2147467259, "locked"));
  EXPECT_EQ(update_head("UNAPPROVED"), trapped(-2147467259, "locked"));
  EXPECT_TRUE(stage.database_calls().ends_with(" ! locked\n"));
  EXPECT_EQ(stage.transcript().find("CommitTrans"), std::string::npos);
  EXPECT_EQ(stage.transcript().find("RollbackTrans"), std::string::npos);
}

TEST_P(CheckHeadUpdate, EachTagAsksForARightOfItsOwnAndNoOwnerHelps) {
  for (const auto& [tag, right] :
       {std::pair{"APPROVED", "CanApproved"}, std::pair{"UNAPPROVED", "CanUnapproved"},
        std::pair{"CANCEL", "CanCancel"}, std::pair{"FINISHED", "CanFinished"}}) {
    for (const Value& value : no_rights) {
      Stage each(GetParam());
      for (const char* other : {"CanUpdate", "CanInsert", "CanDelete", "CanApproved", "CanUnapproved",
                                "CanCancel", "CanFinished", "Owner"})
        each.set(other, 1);
      each.set(right, value);
      const Object head = each.client("CCheckHead");
      Value operation = tag;
      EXPECT_EQ(
          outcome_of(head, head.call("Update", "S1", ref(fields.names), ref(fields.values), ref(operation))),
          refused(10000016))
          << tag << stage::shown(value);
      EXPECT_TRUE(each.rights_calls().ends_with("rights.PowerCheck 'STK026CHECK'\nrights." +
                                                std::string(right) + "\n"));
      EXPECT_EQ(each.database_calls(), "");
    }
  }
}

TEST_P(CheckHeadUpdate, AnyOtherTagIsAnEditAndPostsNothing) {
  for (const char* tag : {"approved", "APPROVED ", "Unapproved", "x", ""}) {
    Stage each(GetParam());
    each.set("CanUpdate", 1);
    const Object head = each.client("CCheckHead");
    Value operation = tag;
    EXPECT_EQ(
        outcome_of(head, head.call("Update", "S1", ref(fields.names), ref(fields.values), ref(operation))),
        done);
    EXPECT_TRUE(each.database_calls().ends_with("C1.BeginTrans\n" + change + "C1.CommitTrans\nC1.Close\n"))
        << tag;
  }
}

TEST_P(CheckHeadUpdate, AnOwnerEditsOverTheConnectionOfTheOwnerTest) {
  stage.set("Owner", 1).finds(owner_query, {{"ADDBY"}, {{" TESTER  "}}});
  EXPECT_EQ(update_head(""), done);
  EXPECT_EQ(stage.database_calls(),
            "C1.Open 'DSN=x' '' '' -1\n"
            "R1.Open " +
                owner_query +
                " | C1 3 1 -1\n"
                "R1.MoveLast\n"
                "R1.Close\n"
                "C1.State\n" +
                structure + "C1.BeginTrans\n" + change +
                "C1.CommitTrans\n"
                "C1.Close\n");
}

TEST_P(CheckHeadUpdate, AnOwnerTestThatFindsNoHeaderPasses) {
  stage.set("Owner", 1);
  EXPECT_EQ(update_head("approved"), done);
  EXPECT_EQ(stage.database_calls(),
            "C1.Open 'DSN=x' '' '' -1\n"
            "R1.Open " +
                owner_query +
                " | C1 3 1 -1\n"
                "R1.Close\n"
                "C1.State\n" +
                structure + "C1.BeginTrans\n" + change +
                "C1.CommitTrans\n"
                "C1.Close\n");
}

TEST_P(CheckHeadUpdate, WhoDidNotCreateTheHeaderIsRefused) {
  for (const Value& owner : {Value("OTHER"), Value("tester"), Value(Null{})}) {
    Stage each(GetParam());
    each.set("Owner", 1).finds(owner_query, {{"ADDBY"}, {{owner}}});
    const Object head = each.client("CCheckHead");
    Value operation = "";
    EXPECT_EQ(
        outcome_of(head, head.call("Update", "S1", ref(fields.names), ref(fields.values), ref(operation))),
        refused(10000016));
    EXPECT_EQ(each.database_calls(),
              "C1.Open 'DSN=x' '' '' -1\n"
              "R1.Open " +
                  owner_query +
                  " | C1 3 1 -1\n"
                  "R1.MoveLast\n"
                  "R1.Close\n"
                  "C1.Close\n");
  }
}

TEST_P(CheckHeadUpdate, WithoutARightNothingIsOpened) {
  for (const Value& right : no_rights) {
    stage.set("CanUpdate", right).set("Owner", right);
    EXPECT_EQ(update_head(""), refused(10000016)) << stage::shown(right);
  }
  EXPECT_EQ(stage.database_calls(), "");
}

TEST_P(CheckHeadUpdate, CollectionsThatDoNotMatchAreRefusedBeforeAnyRightIsAsked) {
  stage.set("CanApproved", 1);
  Fields::add(fields.values, "surplus");
  EXPECT_EQ(update_head("APPROVED"), refused(10000002));
  fields = Fields();
  EXPECT_EQ(update_head("APPROVED"), refused(10000002));
  EXPECT_EQ(stage.rights_calls().find("PowerCheck"), std::string::npos);
  EXPECT_EQ(stage.database_calls(), "");
}

TEST_P(CheckHeadUpdate, ABuilderErrorEndsTheUpdateBeforeItsTransaction) {
  stage.set("CanApproved", 1).set("rights.ErrNumber", 77).set("rights.ErrDescription", "no such column");
  EXPECT_EQ(update_head("APPROVED"), trapped(77, "no such column"));
  EXPECT_TRUE(stage.database_calls().ends_with(structure + "C1.Close\n"));
}

TEST_P(CheckHeadUpdate, TheBuilderMayReplaceTheCollections) {
  stage.set("CanUpdate", 1);
  const Fields other{{"OTHER", 1}};
  stage.set("rights.replaces 1", other.names).set("rights.replaces 2", other.values);
  EXPECT_EQ(update_head(""), done);
  EXPECT_EQ(fields.text(), "OTHER=1");
}

}  // namespace
}  // namespace tallyra::stockcheck_test
