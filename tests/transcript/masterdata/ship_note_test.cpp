#include <gtest/gtest.h>

#include "tests/transcript/stage/fields.h"
#include "tests/transcript/stage/outcome.h"
#include "tests/transcript/stage/stage.h"

// Shipping notes depart from the receiving addresses in their texts, cursors and the transaction of Insert.
namespace tallyra {
namespace {

using automation::Error;
using automation::Null;
using automation::Object;
using automation::ref;
using automation::Value;
using stage::done;
using stage::Fields;
using stage::Outcome;
using stage::outcome_of;
using stage::refused;
using stage::Stage;
using stage::trapped;

const std::string row_query = "Select STKSHIPNOTE.* From STKSHIPNOTE Where STKSHIPNOTE.TRANNO='T1'";
const std::string key_query = "Select * From STKSHIPNOTE where TRANNO='T1'";
const std::string update_owner_query =
    "Select ADDBY from STKSHIPNOTE WHERE STKSHIPNOTE.TRANNO='T1' AND STKSHIPNOTE.TRANTYPE='STK030SHIPN'";
const std::string delete_owner_query = "Select ADDBY from STKSHIPNOTE WHERE TRANNO='T1'";
const Outcome opened_twice = trapped(3705, "Operation is not allowed when the object is open.");

class ShipNote : public testing::TestWithParam<const char*> {
 protected:
  Outcome play(const char* member, const Value& number = "T1") {
    const Object note = stage.client("CStkShipNote");
    Value key = number;
    if (std::string_view(member) == "Delete") return outcome_of(note, note.call(member, key));
    return outcome_of(note, note.call(member, ref(key), ref(fields.names), ref(fields.values)));
  }

  Stage stage{GetParam()};
  Fields fields{{"NOTES", "x"}};
};
INSTANTIATE_TEST_SUITE_P(Kinds, ShipNote, testing::Values("MSACCESS", "MSSQLSERVER"),
                         [](const auto& param) { return std::string(param.param); });

TEST_P(ShipNote, ReadAppendsTheFirstRowInFieldOrder) {
  stage.finds(row_query, {{"TRANNO", "NOTES"}, {{"T1", Null{}}, {"T1", "second"}}});
  EXPECT_EQ(play("Read"), done);
  EXPECT_EQ(fields.text(), "NOTES='x' TRANNO='T1' NOTES=Null");
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

TEST_P(ShipNote, ReadOfAMissingNoteSucceedsAndLeavesTheCollections) {
  EXPECT_EQ(play("Read"), (Outcome{100, 10000003, "text of Msg10000003"}));
  EXPECT_EQ(fields.text(), "NOTES='x'");
}

TEST_P(ShipNote, InsertRunsInATransaction) {
  stage.set("CanInsert", 1);
  EXPECT_EQ(play("Insert"), done);
  EXPECT_EQ(stage.database_calls(),
            "C1.Open 'DSN=x' '' '' -1\n"
            "R1.CursorLocation = 2\n"
            "R1.Open " +
                key_query +
                " | C1 3 1 -1\n"
                "R1.Close\n"
                "C1.BeginTrans\n"
                "C1.Execute <GetInsertSQL STKSHIPNOTE> | -1\n"
                "C1.CommitTrans\n"
                "C1.Close\n");
  EXPECT_TRUE(
      stage.rights_calls().ends_with("rights.PowerCheck 'STK030SHIPN'\n"
                                     "rights.CanInsert\n"
                                     "rights.GetInsertSQL 'STKSHIPNOTE' object object R1\n"
                                     "rights.ErrNumber\n"));
}

TEST_P(ShipNote, InsertWantsTheRightToBeOne) {
  for (const Value& right : {Value(0), Value(2), Value(-1), Value(0.5), Value(Null{}), Value(true)}) {
    stage.set("CanInsert", right);
    EXPECT_EQ(play("Insert"), refused(10000016)) << stage::shown(right);
  }
  EXPECT_EQ(stage.database_calls(), "");
}

TEST_P(ShipNote, InsertOfAnExistingNumberIsRefused) {
  stage.set("CanInsert", 1).finds(key_query, {{"TRANNO"}, {{"T1"}}});
  EXPECT_EQ(play("Insert"), refused(10000004));
  EXPECT_TRUE(
      stage.database_calls().ends_with("R1.Open " + key_query + " | C1 3 1 -1\nR1.Close\nC1.Close\n"));
}

TEST_P(ShipNote, AFailedInsertIsLeftToTheReleasedConnection) {
  stage.set("CanInsert", 1).fails("Execute", Error(-2147217873, "duplicate"));
  EXPECT_EQ(play("Insert"), trapped(-2147217873, "duplicate"));
  EXPECT_TRUE(stage.database_calls().ends_with("C1.Execute <GetInsertSQL STKSHIPNOTE> | -1 ! duplicate\n"));
}

TEST_P(ShipNote, UpdateReadsItsStructureWithoutChoosingACursorLocation) {
  stage.set("CanUpdate", 1);
  EXPECT_EQ(play("Update"), done);
  EXPECT_EQ(stage.database_calls(),
            "C1.Open 'DSN=x' '' '' -1\n"
            "R1.Open Select top 1 * From STKSHIPNOTE | C1 3 1 -1\n"
            "R1.Close\n"
            "C1.Execute <GetUpdateSQL STKSHIPNOTE> Where STKSHIPNOTE.TRANNO='T1'  | -1\n"
            "C1.Close\n");
  EXPECT_TRUE(
      stage.rights_calls().ends_with("rights.PowerCheck 'STK030SHIPN'\n"
                                     "rights.CanUpdate\n"
                                     "rights.GetUpdateSQL 'STKSHIPNOTE' object object R1\n"
                                     "rights.ErrNumber\n"));
}

TEST_P(ShipNote, AnOwnerEndsInTheTrapBecauseTheConnectionIsOpenedTwice) {
  stage.set("Owner", 1);
  stage.finds(update_owner_query, {{"ADDBY"}, {{" TESTER "}}});
  stage.finds(delete_owner_query, {{"ADDBY"}, {{" TESTER "}}});
  EXPECT_EQ(play("Update"), opened_twice);
  EXPECT_EQ(stage.database_calls(),
            "C1.Open 'DSN=x' '' '' -1\n"
            "R1.Open " +
                update_owner_query +
                " | C1 3 1 -1\n"
                "R1.MoveLast\n"
                "R1.Close\n"
                "C1.Open 'DSN=x' '' '' -1\n");
  stage.clear();
  EXPECT_EQ(play("Delete"), opened_twice);
  EXPECT_EQ(stage.database_calls(),
            "C2.Open 'DSN=x' '' '' -1\n"
            "R2.Open " +
                delete_owner_query +
                " | C2 0 1 -1\n"
                "R2.MoveLast\n"
                "R2.Close\n"
                "C2.Open 'DSN=x' '' '' -1\n");
}

TEST_P(ShipNote, ANoteOfAnotherTypePassesTheOwnerTestOfUpdateAndEndsInTheTrapAsWell) {
  stage.set("Owner", 1).finds(update_owner_query, {{"ADDBY"}, {}});
  EXPECT_EQ(play("Update"), opened_twice);
  EXPECT_EQ(stage.database_calls(),
            "C1.Open 'DSN=x' '' '' -1\n"
            "R1.Open " +
                update_owner_query +
                " | C1 3 1 -1\n"
                "C1.Open 'DSN=x' '' '' -1\n");
}

TEST_P(ShipNote, WhoDoesNotOwnTheNoteIsRefused) {
  stage.set("Owner", 1);
  stage.finds(update_owner_query, {{"ADDBY"}, {{"OTHER"}}});
  stage.finds(delete_owner_query, {{"ADDBY"}, {{"tester"}}});
  EXPECT_EQ(play("Update"), refused(10000016));
  EXPECT_TRUE(stage.database_calls().ends_with("R1.MoveLast\nR1.Close\nC1.Close\n"));
  EXPECT_EQ(play("Delete"), refused(10000016));
  EXPECT_TRUE(stage.database_calls().ends_with("R2.MoveLast\nR2.Close\nC2.Close\n"));
}

TEST_P(ShipNote, WithoutARightNothingIsOpened) {
  for (const Value& right : {Value(0), Value(2), Value(-1), Value(Null{})}) {
    stage.set("CanUpdate", right).set("CanDelete", right).set("Owner", right);
    EXPECT_EQ(play("Update"), refused(10000016)) << stage::shown(right);
    EXPECT_EQ(play("Delete"), refused(10000016)) << stage::shown(right);
  }
  EXPECT_EQ(stage.database_calls(), "");
}

TEST_P(ShipNote, DeleteRunsInATransactionAndRollsBack) {
  const std::string removal =
      "C1.Open 'DSN=x' '' '' -1\n"
      "C1.BeginTrans\n"
      "C1.Execute Delete From STKSHIPNOTE Where TRANNO='T1' | -1";
  stage.set("CanDelete", 1);
  EXPECT_EQ(play("Delete"), done);
  EXPECT_EQ(stage.database_calls(), removal + "\nC1.CommitTrans\nC1.Close\n");
  Stage locked(GetParam());
  locked.set("CanDelete", 1).fails("Execute", Error(-2147467259, "locked"));
  const Object note = locked.client("CStkShipNote");
  EXPECT_EQ(outcome_of(note, note.call("Delete", "T1")), trapped(-2147467259, "locked"));
  EXPECT_EQ(locked.database_calls(), removal + " ! locked\nC1.RollbackTrans\nC1.Close\n");
}

TEST_P(ShipNote, CollectionsThatDoNotMatchAreRefusedBeforeAnyRightIsAsked) {
  Fields::add(fields.names, "SURPLUS");
  for (const char* member : {"Insert", "Update"}) EXPECT_EQ(play(member), refused(10000002)) << member;
  fields = Fields();
  for (const char* member : {"Insert", "Update"}) EXPECT_EQ(play(member), refused(10000002)) << member;
  EXPECT_EQ(stage.rights_calls().find("PowerCheck"), std::string::npos);
}

TEST_P(ShipNote, ABuilderErrorIsCopiedWithEverythingClosed) {
  stage.set("CanInsert", 1).set("CanUpdate", 1);
  stage.set("rights.ErrNumber", 77).set("rights.ErrDescription", "no such column");
  for (const char* member : {"Insert", "Update"}) {
    EXPECT_EQ(play(member), trapped(77, "no such column")) << member;
    EXPECT_TRUE(stage.database_calls().ends_with("Close\n")) << member;
  }
  EXPECT_EQ(stage.transcript().find("Execute"), std::string::npos);
}

}  // namespace
}  // namespace tallyra
