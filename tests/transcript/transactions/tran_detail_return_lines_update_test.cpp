#include "tests/transcript/transactions/transaction_script.h"

namespace tallyra::transactions_test {
namespace {

const std::string owner_query = "Select ADDBY from STKTRANDT WHERE TRANNO='T1'";
const std::vector<std::string> no_return_line{owner_query,
                                              "Select * From STKTRANDT Where TRANNO='T1' AND SN=2"};

class ReturnLineUpdate : public TransactionStage {
 protected:
  ReturnLineUpdate() : TransactionStage("CTranDetail", no_return_line) {}
  Outcome play(const Value& number = 2) { return update_return(client(), "T1", number, fields); }
};
TALLYRA_ON_BOTH_KINDS(ReturnLineUpdate);

const std::string written =
    "R1.CursorLocation = 2\n"
    "R1.Open Select * From STKTRANDT Where TRANNO='T1' AND SN=2 | C1 3 1 -1\n"
    "R1.Close\n"
    "C1.BeginTrans\n"
    "C1.Execute <GetUpdateSQL STKTRANDT> Where TRANNO='T1' And SN=2 | -1\n"
    "C1.CommitTrans\n"
    "C1.Close\n";

TEST_P(ReturnLineUpdate, ChangesTheLineOfThatNumberInATransaction) {
  stage.set("CanUpdate", 1);
  EXPECT_EQ(play(), done);
  EXPECT_EQ(stage.database_calls(), "C1.State\nC1.Open 'DSN=x' '' '' -1\n" + written);
  EXPECT_TRUE(
      stage.rights_calls().ends_with("rights.PowerCheck 'STK011PORTN'\n"
                                     "rights.CanUpdate\n"
                                     "rights.GetUpdateSQL 'STKTRANDT' object object R1\n"
                                     "rights.ErrNumber\n"));
}

TEST_P(ReturnLineUpdate, TakesNegativeNumbersAsNumbers) {
  stage.set("CanUpdate", 1);
  stage.finds_nothing("Select * From STKTRANDT Where TRANNO='T1' AND SN=-1");
  EXPECT_EQ(play(-1), done);
  EXPECT_TRUE(tells("C1.Execute <GetUpdateSQL STKTRANDT> Where TRANNO='T1' And SN=-1 | -1"));
}

TEST_P(ReturnLineUpdate, TheFirstLineOfTheDocumentTellsTheOwner) {
  stage.set("Owner", 1);
  stage.finds(owner_query, {{"ADDBY"}, {{" TESTER "}, {"OTHER"}}});
  stage.finds(owner_query, {{"ADDBY"}, {{"OTHER"}, {"TESTER"}}});
  EXPECT_EQ(play(), done);
  EXPECT_EQ(stage.database_calls(), opened + asked(owner_query) + "C1.State\n" + written);
  EXPECT_EQ(play(), refused(10000016));
  EXPECT_TRUE(stage.database_calls().ends_with("R2.Open " + owner_query +
                                               " | C2 3 1 -1\n"
                                               "R2.Close\n"
                                               "C2.Close\n"));
}

TEST_P(ReturnLineUpdate, ANewNumberHasToBeOne) {
  stage.set("CanUpdate", 1);
  const struct {
    Fields fields;
    Outcome outcome;
  } rows[] = {{{{"SN", 3}}, done},
              {{{"SN", "32767"}}, done},
              {{{"SN", -32768}}, done},
              {{{"SN", 2.5}}, done},
              {{{"SN", Value()}}, done},
              {{{"SN", 32768}}, trapped(6, "Overflow")},
              {{{"SN", -32769}}, trapped(6, "Overflow")},
              {{{"SN", 1e300}}, trapped(6, "Overflow")},
              {{{"SN", "third"}}, trapped(13, "Type mismatch")},
              {{{"SN", ""}}, trapped(13, "Type mismatch")},
              {{{"SN", Null{}}}, trapped(94, "Invalid use of Null")},
              {{{"SN", 3}, {"SN", "second"}}, done},
              {{{"QTY", "x"}, {"SN", "x"}}, trapped(13, "Type mismatch")},
              {{{"sn", "x"}}, done},
              {{{"Sn", "x"}, {"SN ", "x"}, {" SN", "x"}}, done}};
  for (const auto& [collections, outcome] : rows) {
    fields = collections;
    stage.clear();
    EXPECT_EQ(play(), outcome) << fields.text();
    if (outcome == done) continue;
    // Found out with the connection open, before anything is asked of it; the connection is let go.
    EXPECT_TRUE(stage.database_calls().ends_with(".Open 'DSN=x' '' '' -1\n")) << stage.database_calls();
  }
}

TEST_P(ReturnLineUpdate, ANewNumberDoesNotMoveTheCondition) {
  stage.set("CanUpdate", 1);
  fields = Fields{{"SN", 9}};
  EXPECT_EQ(play(), done);
  EXPECT_TRUE(stage.database_calls().ends_with(written));
}

TEST_P(ReturnLineUpdate, WritesTheNumberAsItStands) {
  const std::string owner = "Select ADDBY from STKTRANDT WHERE TRANNO='T'1'";
  const std::string row = "Select * From STKTRANDT Where TRANNO='T'1' AND SN=2";
  stage.set("Owner", 1).all_find_nothing({owner, row});
  EXPECT_EQ(update_return(client(), "T'1", 2, fields), done);
  EXPECT_EQ(stage.database_calls(),
            opened + asked(owner) +
                "C1.State\n"
                "R1.CursorLocation = 2\n" +
                asked(row) +
                "C1.BeginTrans\n"
                "C1.Execute <GetUpdateSQL STKTRANDT> Where TRANNO='T'1' And SN=2 | -1\n"
                "C1.CommitTrans\n"
                "C1.Close\n");
}

TEST_P(ReturnLineUpdate, RollsBackAndClosesOnceTheStatementIsMade) {
  for (const char* failing : {"BeginTrans", "Execute", "CommitTrans"}) {
    Stage each(GetParam(), no_return_line);
    each.set("CanUpdate", 1).fails(failing, Error(-2147217900, "locked"));
    EXPECT_EQ(update_return(each.client("CTranDetail"), "T1", 2, fields), trapped(-2147217900, "locked"));
    EXPECT_TRUE(each.database_calls().ends_with(" ! locked\nC1.RollbackTrans\nC1.Close\n")) << failing;
  }
  // There is no transaction yet to roll back; the database's no to that is not the client's business.
  stage.set("CanUpdate", 1).fails("R1.Close", Error(-2147217900, "gone"));
  EXPECT_EQ(play(), trapped(-2147217900, "gone"));
  EXPECT_TRUE(stage.database_calls().ends_with("R1.Close ! gone\nC1.RollbackTrans\nC1.Close\n"));
}

TEST_P(ReturnLineUpdate, AnErrorBeforeThatIsLetGo) {
  stage.set("CanUpdate", 1).fails("R1.Open", Error(-2147217865, "no such table"));
  EXPECT_EQ(play(), trapped(-2147217865, "no such table"));
  EXPECT_TRUE(stage.database_calls().ends_with("! no such table\n"));
}

}  // namespace
}  // namespace tallyra::transactions_test
