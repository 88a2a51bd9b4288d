#include "tests/transcript/transactions/transaction_script.h"

namespace tallyra::transactions_test {
namespace {

const std::string line_address =
    "Select STKTRANDT.* From  STKTRANDT  WHERE STKTRANDT.TRANNO='T1' And STKTRANDT.REFERENCE='PO1' And "
    "STKTRANDT.";
const std::vector<std::string> no_line{line_address + "SN=0", line_address + "SN=7",
                                       line_address + "PARTNO='P1'"};

class TranDetailInsert : public TransactionStage {
 protected:
  TranDetailInsert() : TransactionStage("CTranDetail", no_line) { stage.set("CanInsert", 1); }
  Outcome play(const Line& line = {}) { return write_line(client(), "Insert", line, fields); }
};
TALLYRA_ON_BOTH_KINDS(TranDetailInsert);

TEST_P(TranDetailInsert, LooksTheAddressUpAndInsertsWithoutTransaction) {
  const struct {
    Value number;
    std::string query;
  } rows[] = {{0, line_address + "SN=0"},
              {7, line_address + "SN=7"},
              {-1, line_address + "PARTNO='P1'"},
              {omitted, line_address + "PARTNO='P1'"}};
  for (const auto& [number, query] : rows) {
    Stage each(GetParam(), no_line);
    each.set("CanInsert", 1);
    EXPECT_EQ(write_line(each.client("CTranDetail"), "Insert", {.number = number}, fields), done);
    EXPECT_EQ(each.database_calls(), opened + asked(query) +
                                         "C1.Execute <GetInsertSQL STKTRANDT> | -1\n"
                                         "C1.Close\n");
    EXPECT_TRUE(
        each.rights_calls().ends_with("rights.PowerCheck 'STK010POREV'\n"
                                      "rights.CanInsert\n"
                                      "rights.GetInsertSQL 'STKTRANDT' object object R1\n"
                                      "rights.ErrNumber\n"));
    EXPECT_EQ(fields.text(), "QTY=5");
  }
}

TEST_P(TranDetailInsert, ALineThatIsThereIsRefused) {
  stage.finds(line_address + "SN=7", {{"SN"}, {{7}}});
  EXPECT_EQ(play({.number = 7}), refused(10000004));
  EXPECT_TRUE(stage.database_calls().ends_with("SN=7 | C1 3 1 -1\nR1.Close\nC1.Close\n"));
}

TEST_P(TranDetailInsert, AsksForTheTypeAsItIsGiven) {
  EXPECT_EQ(play({.type = "stk010porev"}), done);
  EXPECT_TRUE(tells("rights.PowerCheck 'stk010porev'"));
}

TEST_P(TranDetailInsert, WritesTheAddressAsItStands) {
  const std::string by_document =
      "Select STKTRANDT.* From  STKTRANDT  WHERE STKTRANDT.TRANNO='T'1' And STKTRANDT.REFERENCE=' r'1 ' And ";
  for (const auto& [number, query] : {std::pair{Value(7), by_document + "STKTRANDT.SN=7"},
                                      std::pair{Value(-1), by_document + "STKTRANDT.PARTNO='it's'"}}) {
    Stage each(GetParam(), {query});
    each.set("CanInsert", 1);
    const Line line{.document = "T'1", .reference = " r'1 ", .part = "it's", .number = number};
    EXPECT_EQ(write_line(each.client("CTranDetail"), "Insert", line, fields), done);
    EXPECT_EQ(each.database_calls(), opened + asked(query) +
                                         "C1.Execute <GetInsertSQL STKTRANDT> | -1\n"
                                         "C1.Close\n");
  }
}

}  // namespace
}  // namespace tallyra::transactions_test
