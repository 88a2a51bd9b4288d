#include "tests/transcript/transactions/transaction_script.h"

namespace tallyra::transactions_test {
namespace {

class ReturnLineInsert : public TransactionStage {
 protected:
  ReturnLineInsert() : TransactionStage("CTranDetail") { stage.set("CanInsert", 1); }
  Outcome play(const Value& number = 1, const Value& check = omitted) {
    return insert_return(client(), "T1", number, fields, check);
  }
};
TALLYRA_ON_BOTH_KINDS(ReturnLineInsert);

const std::string structure =
    "R1.Open Select TOP 1 * From STKTRANDT | C1 3 1 -1\n"
    "R1.Close\n";

std::string line_query(const std::string& number) {
  return "Select * From STKTRANDT Where TRANNO='T1'  And SN=" + number;
}
std::string lines_from(const std::string& number) {
  return "Select STKTRANDT.* FROM STKTRANDT Where STKTRANDT.TRANNO='T1' AND STKTRANDT.SN>=" + number +
         "  ORDER BY STKTRANDT.SN DESC ";
}
std::string looked_up(const std::string& number) {
  return "R1.Open " + line_query(number) + " | C1 3 1 -1\nR1.Close\n";
}
const std::string supplier_query =
    "SELECT STKTRANHD.DEPTNOTO FROM STKTRANHD INNER JOIN SUPPLIERS ON STKTRANHD.DEPTNOTO =SUPPLIERS  "
    "WHERE STKTRANHD.TRANNO='T1'";
std::string receipt_query(const std::string& supplier, const std::string& part) {
  return "SELECT TOP 1 STKTRANHD.TRANNO FROM STKTRANHD INNER JOIN STKTRANDT ON "
         "STKTRANHD.TRANNO=STKTRANDT.TRANNO WHERE STKTRANHD.DEPTNOTO='" +
         supplier + "' AND STKTRANHD.TRANTYPE='STK010POREV' AND STKTRANDT.PARTNO='" + part + "'";
}

TEST_P(ReturnLineInsert, AFreeNumberIsFilledWithoutTransaction) {
  for (const Value& number : {Value(0), Value(4), Value(-3), Value(32767), Value(-32768)}) {
    Stage each(GetParam());
    each.set("CanInsert", 1).finds_nothing(line_query(automation::to_text(number)));
    EXPECT_EQ(insert_return(each.client("CTranDetail"), "T1", number, fields), done);
    EXPECT_EQ(each.database_calls(), opened + structure + looked_up(automation::to_text(number)) +
                                         "C1.Execute <GetInsertSQL STKTRANDT> | -1\n"
                                         "C1.Close\n");
    EXPECT_TRUE(
        each.rights_calls().ends_with("rights.PowerCheck 'STK011PORTN'\n"
                                      "rights.CanInsert\n"
                                      "rights.GetInsertSQL 'STKTRANDT' object object R1\n"
                                      "rights.ErrNumber\n"));
  }
}

TEST_P(ReturnLineInsert, ATakenNumberMovesItAndAllAboveUpTheHighestFirst) {
  stage.finds(line_query("1"), {{"SN"}, {{1}}}).finds(lines_from("1"), {{"SN"}, {{3}, {2}, {1}}});
  EXPECT_EQ(play(1), done);
  EXPECT_EQ(stage.database_calls(),
            opened + structure + looked_up("1") +
                "C1.BeginTrans\n"
                "R1.Open " +
                lines_from("1") +
                " | C1 3 1 -1\n"
                "C1.Execute UPDATE STKTRANDT SET SN=4 Where TRANNO='T1' AND SN=3 | -1\n"
                "C1.Execute UPDATE STKTRANDT SET SN=3 Where TRANNO='T1' AND SN=2 | -1\n"
                "C1.Execute UPDATE STKTRANDT SET SN=2 Where TRANNO='T1' AND SN=1 | -1\n"
                "R1.Close\n"
                "C1.Execute <GetInsertSQL STKTRANDT> | -1\n"
                "C1.CommitTrans\n"
                "C1.Close\n");
}

TEST_P(ReturnLineInsert, ChecksTheSupplierForAnyKindOtherThanZero) {
  for (const Value& kind : {Value(1), Value(2), Value(-1), Value(32767)}) {
    Stage each(GetParam());
    each.set("CanInsert", 1).finds(supplier_query, {{"DEPTNOTO"}, {{"S1"}, {"S2"}}});
    each.finds(receipt_query("S1", "P1"), {{"TRANNO"}, {{"T0"}}}).finds_nothing(line_query("1"));
    Fields line{{"QTY", 5}, {"PartNo", "P1"}, {"PARTNO", "P2"}};
    EXPECT_EQ(insert_return(each.client("CTranDetail"), "T1", 1, line, kind), done);
    EXPECT_EQ(each.database_calls(), opened + "R1.Open " + supplier_query +
                                         " | C1 3 1 -1\n"
                                         "R1.Close\n"
                                         "R1.Open " +
                                         receipt_query("S1", "P1") +
                                         " | C1 3 1 -1\n"
                                         "R1.Close\n" +
                                         structure + looked_up("1") +
                                         "C1.Execute <GetInsertSQL STKTRANDT> | -1\n"
                                         "C1.Close\n");
  }
}

TEST_P(ReturnLineInsert, AsksNobodyWithKindZero) {
  stage.finds_nothing(line_query("1"));
  EXPECT_EQ(play(1, 0), done);
  EXPECT_EQ(stage.transcript().find("SUPPLIERS"), std::string::npos);
  EXPECT_EQ(stage.transcript().find("STK010POREV"), std::string::npos);
}

TEST_P(ReturnLineInsert, RefusesAPartThatNeverCameFromTheSupplier) {
  stage.finds(supplier_query, {{"DEPTNOTO"}, {{"S1"}}}).finds_nothing(receipt_query("S1", "P1"));
  fields = Fields{{"partno", "P1"}};
  EXPECT_EQ(play(1, 1), refused(10000115));
  EXPECT_EQ(stage.database_calls(), opened + "R1.Open " + supplier_query +
                                        " | C1 3 1 -1\n"
                                        "R1.Close\n"
                                        "R1.Open " +
                                        receipt_query("S1", "P1") +
                                        " | C1 3 1 -1\n"
                                        "R1.Close\n"
                                        "C1.Close\n");
}

TEST_P(ReturnLineInsert, AMissingSupplierOrPartIsAnEmptyOne) {
  const struct {
    Rows found;
    Fields fields;
    std::string asked;
  } rows[] = {{{}, {{"PARTNO", "P1"}}, receipt_query("", "P1")},
              {{{"DEPTNOTO"}, {{Null{}}}}, {{"PARTNO", "P1"}}, receipt_query("", "P1")},
              {{{"DEPTNOTO"}, {{"S1"}}}, {{"QTY", 5}}, receipt_query("S1", "")},
              {{{"DEPTNOTO"}, {{"S1"}}}, {{"PARTNO", Null{}}}, receipt_query("S1", "")},
              {{{"DEPTNOTO"}, {{"S1 "}}}, {{"PARTNO ", "P1"}}, receipt_query("S1 ", "")}};
  for (const auto& [found, collections, asked] : rows) {
    Stage each(GetParam());
    each.set("CanInsert", 1).finds(supplier_query, found).finds_nothing(asked);
    Fields line = collections;
    EXPECT_EQ(insert_return(each.client("CTranDetail"), "T1", 1, line, 1), refused(10000115));
    EXPECT_NE(each.transcript().find("R1.Open " + asked + " | C1 3 1 -1\n"), std::string::npos)
        << each.transcript();
  }
}

TEST_P(ReturnLineInsert, TheDatabasesAnswerToTheShortJoinConditionComesBack) {
  stage.fails("=SUPPLIERS  WHERE", Error(-2147217900, "no such column: SUPPLIERS"));
  EXPECT_EQ(play(1, 1), trapped(-2147217900, "no such column: SUPPLIERS"));
  EXPECT_TRUE(stage.database_calls().ends_with("! no such column: SUPPLIERS\n"));
}

TEST_P(ReturnLineInsert, RollsTheWholeShiftBackWhenAnyOfItFails) {
  for (const char* failing :
       {"BeginTrans", "SN>=1", "SET SN=4", "SET SN=2", "<GetInsertSQL", "CommitTrans"}) {
    Stage each(GetParam());
    each.set("CanInsert", 1).fails(failing, Error(-2147217900, "locked"));
    each.finds(line_query("1"), {{"SN"}, {{1}}}).finds(lines_from("1"), {{"SN"}, {{3}, {2}, {1}}});
    EXPECT_EQ(insert_return(each.client("CTranDetail"), "T1", 1, fields), trapped(-2147217900, "locked"));
    EXPECT_TRUE(each.database_calls().ends_with(" ! locked\nC1.RollbackTrans\nC1.Close\n")) << failing;
  }
}

TEST_P(ReturnLineInsert, AnErrorBeforeTheTransactionIsNotRolledBack) {
  // The second Close is that of the look-up which found the number taken.
  stage.finds(line_query("1"), {{"SN"}, {{1}}}).fails("R1.Close", Error(-2147217900, "gone"), 2);
  EXPECT_EQ(play(1), trapped(-2147217900, "gone"));
  EXPECT_EQ(stage.database_calls(), opened + structure + "R1.Open " + line_query("1") +
                                        " | C1 3 1 -1\n"
                                        "R1.Close ! gone\n");
}

TEST_P(ReturnLineInsert, FindsThePartBeforeItAsksForTheSupplier) {
  Fields::add(fields.names, Object());
  Fields::add(fields.values, 1);
  EXPECT_EQ(play(1, 1), trapped(91, "Object variable or With block variable not set"));
  EXPECT_EQ(stage.database_calls(), opened);
}

TEST_P(ReturnLineInsert, ReadsServerSideAlsoWithTheRecordsetOfTheBuilder) {
  stage.set("rights.GetInsertSQL replaces 4", another_recordset(stage));
  stage.clear();
  stage.finds(line_query("1"), {{"SN"}, {{1}}}).finds(lines_from("1"), {{"SN"}, {{1}}});
  EXPECT_EQ(play(1), done);
  EXPECT_TRUE(
      stage.database_calls().ends_with("R2.Open Select TOP 1 * From STKTRANDT | C2 3 1 -1\n"
                                       "R1.Close\n"
                                       "R1.CursorLocation = 2\n"
                                       "R1.Open " +
                                       line_query("1") +
                                       " | C2 3 1 -1\n"
                                       "R1.Close\n"
                                       "C2.BeginTrans\n"
                                       "R1.Open " +
                                       lines_from("1") +
                                       " | C2 3 1 -1\n"
                                       "C2.Execute UPDATE STKTRANDT SET SN=2 Where TRANNO='T1' AND "
                                       "SN=1 | -1\n"
                                       "R1.Close\n"
                                       "C2.Execute <GetInsertSQL STKTRANDT> | -1\n"
                                       "C2.CommitTrans\n"
                                       "C2.Close\n"))
      << stage.database_calls();
}

TEST_P(ReturnLineInsert, APlainInsertThatFailsIsLetGoUnclosed) {
  stage.finds_nothing(line_query("1")).fails("Execute", Error(-2147217900, "locked"));
  EXPECT_EQ(play(), trapped(-2147217900, "locked"));
  EXPECT_TRUE(stage.database_calls().ends_with("C1.Execute <GetInsertSQL STKTRANDT> | -1 ! locked\n"));
}

TEST_P(ReturnLineInsert, AShiftBeyondTheLineNumbersIsAnOverflowAndChangesNothing) {
  const struct {
    Value number;
    Outcome outcome;
  } rows[] = {{32766, done},
              {32767, trapped(6, "Overflow")},
              {40000, trapped(6, "Overflow")},
              {"x", trapped(13, "Type mismatch")},
              {Null{}, trapped(94, "Invalid use of Null")}};
  for (const auto& [number, outcome] : rows) {
    Stage each(GetParam());
    each.set("CanInsert", 1)
        .finds(line_query("1"), {{"SN"}, {{1}}})
        .finds(lines_from("1"), {{"SN"}, {{number}}});
    EXPECT_EQ(insert_return(each.client("CTranDetail"), "T1", 1, fields), outcome) << stage::shown(number);
    const bool shifted = each.transcript().find("SET SN=") != std::string::npos;
    EXPECT_EQ(shifted, outcome == done);
    EXPECT_EQ(each.database_calls().ends_with("C1.RollbackTrans\nC1.Close\n"), !shifted);
  }
}

TEST_P(ReturnLineInsert, WritesNumberSupplierAndPartAsTheyStand) {
  const std::string supplier =
      "SELECT STKTRANHD.DEPTNOTO FROM STKTRANHD INNER JOIN SUPPLIERS ON STKTRANHD.DEPTNOTO =SUPPLIERS  "
      "WHERE STKTRANHD.TRANNO='T'1'";
  const std::string taken = "Select * From STKTRANDT Where TRANNO='T'1'  And SN=1";
  const std::string shifted =
      "Select STKTRANDT.* FROM STKTRANDT Where STKTRANDT.TRANNO='T'1' AND STKTRANDT.SN>=1  ORDER BY "
      "STKTRANDT.SN DESC ";
  stage.finds(supplier, {{"DEPTNOTO"}, {{"O'Neil"}}});
  stage.finds(receipt_query("O'Neil", "it's"), {{"TRANNO"}, {{"T0"}}});
  stage.finds(taken, {{"SN"}, {{1}}}).finds(shifted, {{"SN"}, {{1}}});
  fields = Fields{{"PARTNO", "it's"}};
  EXPECT_EQ(insert_return(client(), "T'1", 1, fields, 1), done);
  EXPECT_EQ(stage.database_calls(),
            opened + asked(supplier) + asked(receipt_query("O'Neil", "it's")) + structure + asked(taken) +
                "C1.BeginTrans\n"
                "R1.Open " +
                shifted +
                " | C1 3 1 -1\n"
                "C1.Execute UPDATE STKTRANDT SET SN=2 Where TRANNO='T'1' AND SN=1 | -1\n"
                "R1.Close\n"
                "C1.Execute <GetInsertSQL STKTRANDT> | -1\n"
                "C1.CommitTrans\n"
                "C1.Close\n");
}

TEST_P(ReturnLineInsert, NumbersOutsideSixteenBitsNeverReachTheMethod) {
  for (const auto& [number, error] : {std::pair{Value(32768), 6}, std::pair{Value(-32769), 6},
                                      std::pair{Value("x"), 13}, std::pair{Value(Null{}), 13}})
    try {
      play(number);
      ADD_FAILURE() << stage::shown(number);
    } catch (const Error& raised) {
      EXPECT_EQ(raised.number(), error) << stage::shown(number);
    }
  EXPECT_EQ(stage.transcript(), "");
}

}  // namespace
}  // namespace tallyra::transactions_test
