#include "tests/transcript/transactions/transaction_script.h"

namespace tallyra::transactions_test {
namespace {

class TranHeadRead : public TransactionStage {
 protected:
  TranHeadRead() : TransactionStage("CTranHead") {}
};
TALLYRA_ON_BOTH_KINDS(TranHeadRead);

const std::string plain_query = "Select STKTRANHD.* From STKTRANHD Where STKTRANHD.TRANNO='T1'";
const std::string shipment_query =
    "Select STKTRANHD.*,STKSHIPNOTE.NOTES AS FEEDBACK From STKTRANHD LEFT JOIN STKSHIPNOTE ON "
    "STKTRANHD.TRANNO=STKSHIPNOTE.TRANNO  Where STKTRANHD.TRANNO='T1'";

TEST_P(TranHeadRead, PutsTheFirstRowInPlaceOfWhatTheCollectionsHeld) {
  stage.finds(plain_query, {{"TRANNO", "STATUSSN", "NOTES"}, {{"T1", 1, Null{}}, {"second", 2, "x"}}});
  EXPECT_EQ(read_head(client(), "T1", "STK010POREV", fields), done);
  EXPECT_EQ(fields.text(), "TRANNO='T1' STATUSSN=1 NOTES=Null");
  EXPECT_EQ(stage.database_calls(),
            "C1.Open 'DSN=x' '' '' -1\n"
            "R1.CursorLocation = 2\n"
            "R1.Open " +
                plain_query +
                " | C1 3 1 -1\n"
                "R1.MoveLast\n"
                "R1.MoveFirst\n"
                "R1.Close\n"
                "C1.Close\n");
}

TEST_P(TranHeadRead, AsksForNoRight) {
  stage.finds(plain_query, {{"TRANNO"}, {{"T1"}}});
  const Object object = client();
  read_head(object, "T1", "STK010POREV", fields);
  stage.clear();
  read_head(object, "T1", "STK010POREV", fields);
  EXPECT_EQ(stage.rights_calls(), "");
}

TEST_P(TranHeadRead, GivesEmptyCollectionsForAMissingHeader) {
  stage.finds_nothing(plain_query);
  EXPECT_EQ(read_head(client(), "T1", "STK010POREV", fields),
            (Outcome{100, 10000003, "text of Msg10000003"}));
  EXPECT_EQ(fields.text(), "");
  EXPECT_EQ(stage.database_calls(), opened + asked(plain_query) + "C1.Close\n");
}

TEST_P(TranHeadRead, JoinsTheNoteOfAShipmentWhateverTheCaseOfItsType) {
  for (const char* type : {"STK030SHIP", "stk030ship", "Stk030Ship"}) {
    Stage other(GetParam());
    other.finds(shipment_query, {{"TRANNO", "FEEDBACK"}, {{"T1", "arrived"}}});
    EXPECT_EQ(read_head(other.client("CTranHead"), "T1", type, fields), done) << type;
    EXPECT_EQ(fields.text(), "TRANNO='T1' FEEDBACK='arrived'") << type;
  }
}

TEST_P(TranHeadRead, JoinsNothingForAnyOtherType) {
  stage.finds_nothing(plain_query);
  for (const char* type : {"STK030SHIPN", "STK030SHI", "STK030SHIP ", " STK030SHIP", "STK010POREV", ""}) {
    stage.clear();
    read_head(client(), "T1", type, fields);
    EXPECT_NE(stage.transcript().find(".Open " + plain_query + " | "), std::string::npos) << type;
  }
}

TEST_P(TranHeadRead, WritesTheNumberAsItStands) {
  const std::string query = "Select STKTRANHD.* From STKTRANHD Where STKTRANHD.TRANNO='O'Neil '";
  stage.finds_nothing(query);
  read_head(client(), "O'Neil ", "", fields);
  EXPECT_TRUE(tells("R1.Open " + query + " | C1 3 1 -1"));
}

TEST_P(TranHeadRead, LeavesTheCollectionsAloneWhenItFails) {
  stage.finds(plain_query, {{"TRANNO"}, {{"T1"}}}).fails("C1.Close", Error(-2147467259, "gone"));
  EXPECT_EQ(read_head(client(), "T1", "", fields), trapped(-2147467259, "gone"));
  EXPECT_EQ(fields.text(), "QTY=5");
}

}  // namespace
}  // namespace tallyra::transactions_test
