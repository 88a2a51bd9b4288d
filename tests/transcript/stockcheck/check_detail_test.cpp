#include "tests/transcript/stockcheck/check_stage.h"

// The counted lines of stocktakings.
namespace tallyra::stockcheck_test {
namespace {

class CheckDetail : public CheckStage {};
TALLYRA_ON_EVERY_KIND(CheckDetail);

const std::string row_query =
    "Select STKCHECKDT.*,PARTS.PARTNM,PARTS.COLORNO,PARTS.COLORNM,PARTS.UNITNM From STKCHECKDT INNER JOIN "
    "PARTS"
    " ON STKCHECKDT.PARTNO=PARTS.PARTNO  Where STKCHECKDT.CHECKNO='S1' And STKCHECKDT.PartNo='P1' ";
const std::string part_query = "Select PARTNO from PARTS WHERE PARTS.PARTNO='P1'";
const std::string key_query = "Select * From STKCHECKDT Where CHECKNO='S1' And PartNo='P1' ";
const std::string update_owner_query = "Select ADDBY from STKCHECKHD WHERE STKCHECKHD.CHECKNO='S1'";
const std::string delete_owner_query = "Select ADDBY from STKCHECKHD WHERE CHECKNO='S1'";
const std::string structure =
    "R1.CursorLocation = 2\n"
    "R1.Open Select top 1 * From STKCHECKDT | C1 0 1 -1\n"
    "R1.Close\n";
const std::string change = "C1.Execute <GetUpdateSQL STKCHECKDT> Where CHECKNO='S1' And PartNo='P1'  | -1\n";
const std::string removal = "C1.Execute Delete From STKCHECKDT Where CHECKNO='S1' And PartNo='P1' | -1\n";

TEST_P(CheckDetail, ReadPutsNewCollectionsWithTheLineAndItsPart) {
  stage.finds(row_query, {{"CHECKNO", "PARTNO", "QTY", "PARTNM"}, {{"S1", "P1", 2.5, Null{}}}});
  EXPECT_EQ(call_detail("Read"), done);
  EXPECT_EQ(fields.text(), "CHECKNO='S1' PARTNO='P1' QTY=2.5 PARTNM=Null");
  EXPECT_EQ(stage.database_calls(),
            "C1.Open 'DSN=x' '' '' -1\n"
            "R1.CursorLocation = 2\n"
            "R1.Open " +
                row_query +
                " | C1 3 1 -1\n"
                "R1.MoveFirst\n"
                "R1.Close\n"
                "C1.Close\n");
  EXPECT_EQ(stage.rights_calls().find("PowerCheck"), std::string::npos);
}

TEST_P(CheckDetail, ReadOfAMissingLineSucceedsWithEmptyCollections) {
  EXPECT_EQ(call_detail("Read"), missing);
  EXPECT_EQ(fields.text(), "");
  EXPECT_TRUE(stage.database_calls().ends_with(" | C1 3 1 -1\nR1.Close\nC1.Close\n"));
}

TEST_P(CheckDetail, UpdateRunsWithoutTransaction) {
  stage.set("CanUpdate", 1);
  EXPECT_EQ(call_detail("Update"), done);
  EXPECT_EQ(stage.database_calls(),
            "C1.State\n"
            "C1.Open 'DSN=x' '' '' -1\n" +
                structure + change + "C1.Close\n");
  EXPECT_TRUE(
      stage.rights_calls().ends_with("rights.PowerCheck 'STK026CHECK'\n"
                                     "rights.CanUpdate\n"
                                     "rights.GetUpdateSQL 'STKCHECKDT' object object R1\n"
                                     "rights.ErrNumber\n"));
}

TEST_P(CheckDetail, TheOwnerOfTheHeaderUpdatesItsLines) {
  stage.set("Owner", 1).finds(update_owner_query, {{"ADDBY"}, {{"TESTER "}}});
  EXPECT_EQ(call_detail("Update"), done);
  EXPECT_EQ(stage.database_calls(),
            "C1.Open 'DSN=x' '' '' -1\n"
            "R1.Open " +
                update_owner_query +
                " | C1 3 1 -1\n"
                "R1.MoveLast\n"
                "R1.Close\n"
                "C1.State\n" +
                structure + change + "C1.Close\n");
}

TEST_P(CheckDetail, WithoutAHeaderTheOwnerRightIsEnough) {
  stage.set("Owner", 1);
  EXPECT_EQ(call_detail("Update"), done);
  EXPECT_EQ(stage.database_calls(),
            "C1.Open 'DSN=x' '' '' -1\n"
            "R1.Open " +
                update_owner_query +
                " | C1 3 1 -1\n"
                "R1.Close\n"
                "C1.State\n" +
                structure + change + "C1.Close\n");
  stage.clear();
  EXPECT_EQ(call_detail("Delete"), done);
  EXPECT_TRUE(
      stage.database_calls().starts_with("C2.Open 'DSN=x' '' '' -1\n"
                                         "R2.Open " +
                                         delete_owner_query +
                                         " | C2 0 1 -1\n"
                                         "R2.Close\n"
                                         "C2.State\n"
                                         "C2.BeginTrans\n"));
}

TEST_P(CheckDetail, InsertLooksThePartUpAndThenTheLine) {
  stage.set("CanInsert", 1).finds(part_query, {{"PARTNO"}, {{"P1"}}});
  EXPECT_EQ(call_detail("Insert"), done);
  EXPECT_EQ(stage.database_calls(),
            "C1.Open 'DSN=x' '' '' -1\n"
            "R1.Open " +
                part_query +
                " | C1 3 1 -1\n"
                "R1.Close\n"
                "R1.CursorLocation = 2\n"
                "R1.Open " +
                key_query +
                " | C1 3 1 -1\n"
                "R1.Close\n"
                "C1.Execute <GetInsertSQL STKCHECKDT> | -1\n"
                "C1.Close\n");
  EXPECT_TRUE(
      stage.rights_calls().ends_with("rights.PowerCheck 'STK026CHECK'\n"
                                     "rights.CanInsert\n"
                                     "rights.GetInsertSQL 'STKCHECKDT' object object R1\n"
                                     "rights.ErrNumber\n"));
}

TEST_P(CheckDetail, AnUnknownPartIsRefusedWithTheNumberAndTheTextThatClientsKnow) {
  stage.set("CanInsert", 1).finds(key_query, {{"CHECKNO"}, {{"S1"}}});
  EXPECT_EQ(call_detail("Insert"), (Outcome{0, 10000025, "text of Msg20000005"}));
  EXPECT_EQ(stage.database_calls(),
            "C1.Open 'DSN=x' '' '' -1\n"
            "R1.Open " +
                part_query +
                " | C1 3 1 -1\n"
                "R1.Close\n"
                "C1.Close\n");
}

TEST_P(CheckDetail, APartCountedBeforeIsRefused) {
  stage.set("CanInsert", 1)
      .finds(part_query, {{"PARTNO"}, {{"P1"}}})
      .finds(key_query, {{"CHECKNO"}, {{"S1"}}});
  EXPECT_EQ(call_detail("Insert"), refused(10000004));
  EXPECT_TRUE(
      stage.database_calls().ends_with("R1.Open " + key_query + " | C1 3 1 -1\nR1.Close\nC1.Close\n"));
}

TEST_P(CheckDetail, DeleteRunsInATransaction) {
  stage.set("CanDelete", 1);
  EXPECT_EQ(call_detail("Delete"), done);
  EXPECT_EQ(stage.database_calls(),
            "C1.State\n"
            "C1.Open 'DSN=x' '' '' -1\n"
            "C1.BeginTrans\n" +
                removal +
                "C1.CommitTrans\n"
                "C1.Close\n");
}

TEST_P(CheckDetail, TheOwnerOfTheHeaderDeletesItsLines) {
  stage.set("Owner", 1).finds(delete_owner_query, {{"ADDBY"}, {{"TESTER"}}});
  EXPECT_EQ(call_detail("Delete"), done);
  EXPECT_EQ(stage.database_calls(),
            "C1.Open 'DSN=x' '' '' -1\n"
            "R1.Open " +
                delete_owner_query +
                " | C1 0 1 -1\n"
                "R1.MoveLast\n"
                "R1.Close\n"
                "C1.State\n"
                "C1.BeginTrans\n" +
                removal +
                "C1.CommitTrans\n"
                "C1.Close\n");
}

TEST_P(CheckDetail, DeleteRollsBackAndCloses) {
  stage.set("CanDelete", 1).fails("Execute", Error(-2147467259, "locked"));
  EXPECT_EQ(call_detail("Delete"), trapped(-2147467259, "locked"));
  EXPECT_TRUE(stage.database_calls().ends_with(" ! locked\nC1.RollbackTrans\nC1.Close\n"));
}

TEST_P(CheckDetail, UpdateAndInsertLeaveAFailedStatementToTheReleasedConnection) {
  stage.set("CanUpdate", 1).set("CanInsert", 1).finds(part_query, {{"PARTNO"}, {{"P1"}}});
  for (const char* member : {"Update", "Insert"}) {
    stage.fails("Execute", Error(-2147217900, "bad"));
    EXPECT_EQ(call_detail(member), trapped(-2147217900, "bad")) << member;
    EXPECT_TRUE(stage.database_calls().ends_with(" | -1 ! bad\n")) << member;
  }
  EXPECT_EQ(stage.transcript().find("Trans"), std::string::npos);
}

TEST_P(CheckDetail, WhoDidNotCreateTheHeaderIsRefused) {
  for (const Value& owner : {Value("OTHER"), Value("tester"), Value(Null{})}) {
    Stage each(GetParam());
    each.set("Owner", 1);
    each.finds(update_owner_query, {{"ADDBY"}, {{owner}}}).finds(delete_owner_query, {{"ADDBY"}, {{owner}}});
    const Object detail = each.client("CCheckDetail");
    Value check = "S1", part = "P1";
    EXPECT_EQ(outcome_of(detail,
                         detail.call("Update", ref(check), ref(part), ref(fields.names), ref(fields.values))),
              refused(10000016));
    EXPECT_TRUE(each.database_calls().ends_with(" | C1 3 1 -1\nR1.MoveLast\nR1.Close\nC1.Close\n"));
    EXPECT_EQ(outcome_of(detail, detail.call("Delete", ref(check), ref(part))), refused(10000016));
    EXPECT_TRUE(each.database_calls().ends_with(" | C2 0 1 -1\nR2.MoveLast\nR2.Close\nC2.Close\n"));
  }
}

TEST_P(CheckDetail, OnlyTheNumberOneIsARight) {
  for (const Value& right : no_rights) {
    stage.set("CanInsert", right).set("CanUpdate", right).set("CanDelete", right).set("Owner", right);
    for (const char* member : {"Insert", "Update", "Delete"})
      EXPECT_EQ(call_detail(member), refused(10000016)) << member << stage::shown(right);
  }
  EXPECT_EQ(stage.database_calls(), "");
}

TEST_P(CheckDetail, CollectionsThatDoNotMatchAreRefusedBeforeAnyRightIsAsked) {
  Fields::add(fields.names, "SURPLUS");
  for (const char* member : {"Insert", "Update"}) EXPECT_EQ(call_detail(member), refused(10000002)) << member;
  fields = Fields();
  for (const char* member : {"Insert", "Update"}) EXPECT_EQ(call_detail(member), refused(10000002)) << member;
  EXPECT_EQ(stage.rights_calls().find("PowerCheck"), std::string::npos);
}

TEST_P(CheckDetail, ABuilderErrorIsCopiedWithEverythingClosed) {
  stage.set("CanInsert", 1).set("CanUpdate", 1).finds(part_query, {{"PARTNO"}, {{"P1"}}});
  stage.set("rights.ErrNumber", 77).set("rights.ErrDescription", "no such column");
  EXPECT_EQ(call_detail("Insert"), trapped(77, "no such column"));
  EXPECT_TRUE(stage.database_calls().ends_with("R1.Close\nC1.Close\n"));
  EXPECT_EQ(call_detail("Update"), trapped(77, "no such column"));
  EXPECT_TRUE(stage.database_calls().ends_with("R2.Close\nC2.Close\n"));
  EXPECT_EQ(stage.transcript().find("Execute"), std::string::npos);
}

TEST_P(CheckDetail, KeysAreWrittenAsTheyStand) {
  stage.set("CanDelete", 1);
  call_detail("Delete", " s1", "p'1 ");
  EXPECT_TRUE(tells("C1.Execute Delete From STKCHECKDT Where CHECKNO=' s1' And PartNo='p'1 ' | -1"));
  call_detail("Read", " s1", "p'1 ");
  EXPECT_NE(stage.transcript().find(" Where STKCHECKDT.CHECKNO=' s1' And STKCHECKDT.PartNo='p'1 '  | "),
            std::string::npos);
}

}  // namespace
}  // namespace tallyra::stockcheck_test
