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

}  // namespace
}  // namespace tallyra::transactions_test
