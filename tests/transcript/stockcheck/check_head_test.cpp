#include "tests/transcript/stockcheck/check_stage.h"

// Reading, inserting and deleting headers of stocktakings.
namespace tallyra::stockcheck_test {
namespace {

class CheckHead : public CheckStage {};
TALLYRA_ON_EVERY_KIND(CheckHead);

const std::string row_query = "Select STKCHECKHD.* From STKCHECKHD Where STKCHECKHD.CHECKNO='S1'";
const std::string key_query = "Select * From STKCHECKHD where CHECKNO='S1'";
const std::string owner_query = "Select ADDBY from STKCHECKHD WHERE CHECKNO='S1'";

TEST_P(CheckHead, ReadPutsNewCollectionsWithTheFirstRowInFieldOrder) {
  stage.finds(row_query, {{"CHECKNO", "STATUSSN", "NOTES"}, {{"S1", 1, Null{}}, {"second", 2, ""}}});
  const Value before = fields.names;
  EXPECT_EQ(call_head("Read"), done);
  EXPECT_EQ(fields.text(), "CHECKNO='S1' STATUSSN=1 NOTES=Null");
  EXPECT_FALSE(fields.names == before);
  EXPECT_EQ(stage.database_calls(),
            "C1.Open 'DSN=x' '' '' -1\n"
            "R1.CursorLocation = 2\n"
            "R1.Open " +
                row_query +
                " | C1 3 1 -1\n"
                "R1.MoveLast\n"
                "R1.MoveFirst\n"
                "R1.Close\n"
                "C1.Close\n");
  EXPECT_EQ(stage.rights_calls().find("PowerCheck"), std::string::npos);
}

TEST_P(CheckHead, ReadOfAMissingHeaderSucceedsWithEmptyCollections) {
  EXPECT_EQ(call_head("Read"), missing);
  EXPECT_EQ(fields.text(), "");
  EXPECT_EQ(automation::to_int32(fields.names.get_if<Object>()->get("Count")), 0);
  EXPECT_EQ(automation::to_int32(fields.values.get_if<Object>()->get("Count")), 0);
  EXPECT_EQ(stage.database_calls(),
            "C1.Open 'DSN=x' '' '' -1\n"
            "R1.CursorLocation = 2\n"
            "R1.Open " +
                row_query +
                " | C1 3 1 -1\n"
                "R1.Close\n"
                "C1.Close\n");
}

TEST_P(CheckHead, AFailingReadLeavesTheCollectionsAsTheyWere) {
  const Value before = fields.names;
  stage.finds(row_query, {{"CHECKNO"}, {{"S1"}}}).fails("R1.MoveFirst", Error(-2147467259, "lost"));
  EXPECT_EQ(call_head("Read"), trapped(-2147467259, "lost"));
  EXPECT_TRUE(fields.names == before);
  EXPECT_EQ(fields.text(), "NOTES='x'");
}

TEST_P(CheckHead, InsertRunsInATransactionOnTheEmptyExistenceQuery) {
  stage.set("CanInsert", 1);
  EXPECT_EQ(call_head("Insert"), done);
  EXPECT_EQ(stage.database_calls(),
            "C1.Open 'DSN=x' '' '' -1\n"
            "R1.CursorLocation = 2\n"
            "R1.Open " +
                key_query +
                " | C1 3 1 -1\n"
                "R1.Close\n"
                "C1.BeginTrans\n"
                "C1.Execute <GetInsertSQL STKCHECKHD> | -1\n"
                "C1.CommitTrans\n"
                "C1.Close\n");
  EXPECT_TRUE(
      stage.rights_calls().ends_with("rights.PowerCheck 'STK026CHECK'\n"
                                     "rights.CanInsert\n"
                                     "rights.GetInsertSQL 'STKCHECKHD' object object R1\n"
                                     "rights.ErrNumber\n"));
}

TEST_P(CheckHead, InsertWantsTheRightToBeOne) {
  for (const Value& right : no_rights) {
    stage.set("CanInsert", right);
    EXPECT_EQ(call_head("Insert"), refused(10000016)) << stage::shown(right);
  }
  EXPECT_EQ(stage.database_calls(), "");
}

TEST_P(CheckHead, InsertOfAnExistingNumberIsRefused) {
  stage.set("CanInsert", 1).finds(key_query, {{"CHECKNO"}, {{"S1"}}});
  EXPECT_EQ(call_head("Insert"), refused(10000004));
  EXPECT_EQ(stage.database_calls(),
            "C1.Open 'DSN=x' '' '' -1\n"
            "R1.CursorLocation = 2\n"
            "R1.Open " +
                key_query +
                " | C1 3 1 -1\n"
                "R1.Close\n"
                "C1.Close\n");
}

TEST_P(CheckHead, CollectionsThatDoNotMatchAreRefusedBeforeAnyRightIsAsked) {
  stage.set("CanInsert", 1);
  Fields::add(fields.names, "SURPLUS");
  EXPECT_EQ(call_head("Insert"), refused(10000002));
  fields = Fields();
  EXPECT_EQ(call_head("Insert"), refused(10000002));
  EXPECT_EQ(stage.rights_calls().find("PowerCheck"), std::string::npos);
  EXPECT_EQ(stage.database_calls(), "");
}

TEST_P(CheckHead, ABuilderErrorEndsTheInsertBeforeItsTransaction) {
  stage.set("CanInsert", 1).set("rights.ErrNumber", 77).set("rights.ErrDescription", "no such column");
  EXPECT_EQ(call_head("Insert"), trapped(77, "no such column"));
  EXPECT_TRUE(stage.database_calls().ends_with(" | C1 3 1 -1\nR1.Close\nC1.Close\n"));
}

TEST_P(CheckHead, NoErrorRollsBackTheConnectionIsLetGo) {
  stage.set("CanInsert", 1).set("CanDelete", 1);
  stage.fails("<GetInsertSQL", Error(-2147217873, "duplicate"))
      .fails("Delete From STKCHECKDT", Error(-1, "x"));
  EXPECT_EQ(call_head("Insert"), trapped(-2147217873, "duplicate"));
  EXPECT_TRUE(stage.database_calls().ends_with("C1.Execute <GetInsertSQL STKCHECKHD> | -1 ! duplicate\n"));
  stage.clear();
  EXPECT_EQ(call_head("Delete"), trapped(-1, "x"));
  EXPECT_EQ(stage.database_calls(),
            "C2.State\n"
            "C2.Open 'DSN=x' '' '' -1\n"
            "C2.BeginTrans\n"
            "C2.Execute Delete From STKCHECKHD Where CHECKNO='S1' | -1\n"
            "C2.Execute Delete From STKCHECKDT Where CHECKNO='S1' | -1 ! x\n");
}

TEST_P(CheckHead, DeleteTakesTheHeaderThenTheLines) {
  stage.set("CanDelete", 1);
  EXPECT_EQ(call_head("Delete"), done);
  EXPECT_EQ(stage.database_calls(),
            "C1.State\n"
            "C1.Open 'DSN=x' '' '' -1\n"
            "C1.BeginTrans\n"
            "C1.Execute Delete From STKCHECKHD Where CHECKNO='S1' | -1\n"
            "C1.Execute Delete From STKCHECKDT Where CHECKNO='S1' | -1\n"
            "C1.CommitTrans\n"
            "C1.Close\n");
  EXPECT_TRUE(stage.rights_calls().ends_with("rights.PowerCheck 'STK026CHECK'\nrights.CanDelete\n"));
}

TEST_P(CheckHead, AnOwnerDeletesOverTheConnectionOfTheOwnerTest) {
  stage.set("Owner", 1).finds(owner_query, {{"ADDBY"}, {{"OTHER"}, {"  TESTER "}}});
  EXPECT_EQ(call_head("Delete"), done);
  EXPECT_EQ(stage.database_calls(),
            "C1.Open 'DSN=x' '' '' -1\n"
            "R1.Open " +
                owner_query +
                " | C1 3 1 -1\n"
                "R1.MoveLast\n"
                "R1.Close\n"
                "C1.State\n"
                "C1.BeginTrans\n"
                "C1.Execute Delete From STKCHECKHD Where CHECKNO='S1' | -1\n"
                "C1.Execute Delete From STKCHECKDT Where CHECKNO='S1' | -1\n"
                "C1.CommitTrans\n"
                "C1.Close\n");
}

TEST_P(CheckHead, WhoDidNotCreateTheHeaderMayNotDeleteIt) {
  for (const Value& owner : {Value("OTHER"), Value("tester"), Value("TESTER X"), Value(Null{})}) {
    Stage each(GetParam());
    each.set("Owner", 1).finds(owner_query, {{"ADDBY"}, {{owner}}});
    const Object head = each.client("CCheckHead");
    EXPECT_EQ(outcome_of(head, head.call("Delete", "S1")), refused(10000016)) << stage::shown(owner);
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

TEST_P(CheckHead, WithoutARightNothingIsOpened) {
  for (const Value& right : no_rights) {
    stage.set("CanDelete", right).set("Owner", right);
    EXPECT_EQ(call_head("Delete"), refused(10000016)) << stage::shown(right);
  }
  EXPECT_EQ(stage.database_calls(), "");
}

TEST_P(CheckHead, NumbersAreWrittenAsTheyStand) {
  stage.set("CanInsert", 1).set("CanDelete", 1);
  call_head("Insert", " O'Neil ");
  call_head("Delete", " O'Neil ");
  call_head("Read", " O'Neil ");
  EXPECT_TRUE(tells("R1.Open Select * From STKCHECKHD where CHECKNO=' O'Neil ' | C1 3 1 -1"));
  EXPECT_TRUE(tells("C2.Execute Delete From STKCHECKDT Where CHECKNO=' O'Neil ' | -1"));
  EXPECT_TRUE(
      tells("R3.Open Select STKCHECKHD.* From STKCHECKHD Where STKCHECKHD.CHECKNO=' O'Neil ' | C3 3 1 -1"));
}

}  // namespace
}  // namespace tallyra::stockcheck_test
