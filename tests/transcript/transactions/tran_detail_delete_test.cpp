#include "tests/transcript/transactions/transaction_script.h"

namespace tallyra::transactions_test {
namespace {

class TranDetailDelete : public TransactionStage {
 protected:
  TranDetailDelete() : TransactionStage("CTranDetail") {}
};
TALLYRA_ON_BOTH_KINDS(TranDetailDelete);

const std::string deleted_address =
    " WHERE STKTRANDT.TRANNO='T1' AND STKTRANDT.REFERENCE='PO1' AND STKTRANDT.";

std::string deletion(const std::string& condition) {
  return "C1.BeginTrans\n"
         "C1.Execute Delete From STKTRANDT" +
         condition +
         " | -1\n"
         "C1.CommitTrans\n"
         "C1.Close\n";
}

const struct {
  const char* type;
  Value number;
  std::string condition;
} addresses[] = {{"STK010POREV", 0, deleted_address + "SN=0"},
                 {"STK010POREV", 7, deleted_address + "SN=7"},
                 {"STK011PORTN", 7, deleted_address + "SN=7"},
                 {"STK010POREV", -1, deleted_address + "PARTNO='P1' "},
                 {"STK011PORTN", omitted, deleted_address + "PARTNO='P1' "}};

TEST_P(TranDetailDelete, RemovesTheAddressedLinesInATransaction) {
  for (const auto& [type, number, condition] : addresses) {
    Stage each(GetParam());
    each.set("CanDelete", 1);
    EXPECT_EQ(delete_line(each.client("CTranDetail"), {.type = type, .number = number}), done);
    EXPECT_EQ(each.database_calls(), "C1.State\nC1.Open 'DSN=x' '' '' -1\n" + deletion(condition));
    EXPECT_TRUE(
        each.rights_calls().ends_with("rights.PowerCheck '" + std::string(type) + "'\nrights.CanDelete\n"));
  }
}

TEST_P(TranDetailDelete, TheCreatorOfTheLineGoesOnOverTheSameConnection) {
  for (const auto& [type, number, condition] : addresses)
    for (const bool found : {true, false}) {
      Stage each(GetParam());
      each.set("Owner", 1);
      const std::string owner_query = "Select ADDBY from STKTRANDT" + condition;
      each.finds_nothing(owner_query);
      if (found) each.finds(owner_query, {{"ADDBY"}, {{"TESTER"}}});
      EXPECT_EQ(delete_line(each.client("CTranDetail"), {.type = type, .number = number}), done);
      EXPECT_EQ(each.database_calls(),
                "C1.Open 'DSN=x' '' '' -1\n"
                "R1.CursorLocation = 2\n"
                "R1.Open Select ADDBY from STKTRANDT" +
                    condition + " | C1 3 1 -1\n" + (found ? "R1.MoveLast\n" : "") +
                    "R1.Close\n"
                    "C1.State\n" +
                    deletion(condition));
    }
}

}  // namespace
}  // namespace tallyra::transactions_test
