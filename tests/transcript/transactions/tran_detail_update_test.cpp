#include "tests/transcript/transactions/transaction_script.h"

namespace tallyra::transactions_test {
namespace {

const std::string address_to_change = "STKTRANDT.TRANNO='T1' AND STKTRANDT.REFERENCE='PO1' AND STKTRANDT.";
const std::vector<std::string> no_line_to_change{
    "Select ADDBY from STKTRANDT WHERE " + address_to_change + "SN=7",
    "Select ADDBY from STKTRANDT WHERE " + address_to_change + "PARTNO='P1' "};

class TranDetailUpdate : public TransactionStage {
 protected:
  TranDetailUpdate() : TransactionStage("CTranDetail", no_line_to_change) {}
  Outcome play(const Line& line = {}) { return write_line(client(), "Update", line, fields); }
};
TALLYRA_ON_BOTH_KINDS(TranDetailUpdate);

const std::string structure =
    "R1.CursorLocation = 2\n"
    "R1.Open Select top 1 * From STKTRANDT | C1 3 1 -1\n"
    "R1.Close\n";

TEST_P(TranDetailUpdate, AppendsTheConditionOfNumberOrPart) {
  const std::string open_parenthesis =
      " WHERE (STKTRANDT.TRANNO='T1' OR STKTRANDT.TRANNO='STK011PORTN' AND STKTRANDT.REFERENCE='PO1' "
      "AND STKTRANDT.SN=";
  const struct {
    const char* type;
    Value number;
    std::string condition;
  } rows[] = {{"STK010POREV", 0, " WHERE " + address_to_change + "SN=0"},
              {"STK010POREV", 7, " WHERE " + address_to_change + "SN=7"},
              {"STK010POREV", -1, " WHERE " + address_to_change + "PARTNO='P1' "},
              {"STK010POREV", omitted, " WHERE " + address_to_change + "PARTNO='P1' "},
              {"STK011PORTN", 0, open_parenthesis + "0"},
              {"STK011PORTN", 7, open_parenthesis + "7"},
              {"STK011PORTN", -1, " WHERE " + address_to_change + "PARTNO='P1' "},
              {"STK011PORTN", omitted, " WHERE " + address_to_change + "PARTNO='P1' "},
              {"stk011portn", 7, " WHERE " + address_to_change + "SN=7"},
              {"STK011PORTN ", 7, " WHERE " + address_to_change + "SN=7"},
              {"STK010PORTN", 7, " WHERE " + address_to_change + "SN=7"}};
  for (const auto& [type, number, condition] : rows) {
    Stage each(GetParam(), no_line_to_change);
    each.set("CanUpdate", 1);
    EXPECT_EQ(write_line(each.client("CTranDetail"), "Update", {.type = type, .number = number}, fields),
              done);
    EXPECT_EQ(each.database_calls(),
              "C1.State\n"
              "C1.Open 'DSN=x' '' '' -1\n" +
                  structure + "C1.Execute <GetUpdateSQL STKTRANDT>" + condition +
                  " | -1\n"
                  "C1.Close\n");
    EXPECT_TRUE(each.rights_calls().ends_with("rights.PowerCheck '" + std::string(type) +
                                              "'\n"
                                              "rights.CanUpdate\n"
                                              "rights.GetUpdateSQL 'STKTRANDT' object object R1\n"
                                              "rights.ErrNumber\n"));
  }
}

TEST_P(TranDetailUpdate, TheCreatorOfTheLineGoesOnOverTheSameConnection) {
  const struct {
    Value number;
    std::string owner_query;
  } rows[] = {{7, "Select ADDBY from STKTRANDT WHERE " + address_to_change + "SN=7"},
              {-1, "Select ADDBY from STKTRANDT WHERE " + address_to_change + "PARTNO='P1' "}};
  for (const auto& [number, owner_query] : rows)
    for (const bool found : {true, false}) {
      Stage each(GetParam(), no_line_to_change);
      each.set("Owner", 1);
      if (found) each.finds(owner_query, {{"ADDBY"}, {{" TESTER"}}});
      EXPECT_EQ(write_line(each.client("CTranDetail"), "Update", {.number = number}, fields), done);
      EXPECT_TRUE(
          each.database_calls().starts_with("C1.Open 'DSN=x' '' '' -1\n"
                                            "R1.CursorLocation = 2\n"
                                            "R1.Open " +
                                            owner_query + " | C1 3 1 -1\n" + (found ? "R1.MoveLast\n" : "") +
                                            "R1.Close\n"
                                            "C1.State\n" +
                                            structure + "C1.Execute <GetUpdateSQL STKTRANDT> WHERE "))
          << each.database_calls();
    }
}

TEST_P(TranDetailUpdate, TheOwnerQueryOfAPurchaseReturnIsWellFormed) {
  stage.set("Owner", 1);
  EXPECT_EQ(play({.type = "STK011PORTN", .number = 7}), done);
  EXPECT_TRUE(tells("R1.Open Select ADDBY from STKTRANDT WHERE " + address_to_change + "SN=7 | C1 3 1 -1"));
}

TEST_P(TranDetailUpdate, OfSeveralLinesTheLastOneTellsTheOwner) {
  const std::string owner_query = "Select ADDBY from STKTRANDT WHERE " + address_to_change + "PARTNO='P1' ";
  stage.set("Owner", 1);
  stage.finds(owner_query, {{"ADDBY"}, {{"OTHER"}, {"TESTER"}}});
  stage.finds(owner_query, {{"ADDBY"}, {{"TESTER"}, {"OTHER"}}});
  EXPECT_EQ(play(), done);
  EXPECT_EQ(play(), refused(10000016));
}

TEST_P(TranDetailUpdate, TheDatabasesAnswerToTheOpenParenthesisComesBack) {
  stage.set("CanUpdate", 1).fails("OR STKTRANDT.TRANNO='STK011PORTN'", Error(-2147217900, "Missing )"));
  EXPECT_EQ(play({.type = "STK011PORTN", .number = 1}), trapped(-2147217900, "Missing )"));
  EXPECT_TRUE(stage.database_calls().ends_with("SN=1 | -1 ! Missing )\n"));
}

TEST_P(TranDetailUpdate, WritesTheAddressAsItStands) {
  stage.set("CanUpdate", 1);
  play({.document = "T'1", .reference = " r ", .part = "it's", .number = -5});
  EXPECT_TRUE(
      tells("C1.Execute <GetUpdateSQL STKTRANDT> WHERE STKTRANDT.TRANNO='T'1' AND "
            "STKTRANDT.REFERENCE=' r ' AND STKTRANDT.PARTNO='it's'  | -1"));
}

}  // namespace
}  // namespace tallyra::transactions_test
