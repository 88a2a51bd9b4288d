#include "automation/clock.h"
#include "tests/transcript/transactions/transaction_script.h"

// The lines that a new header takes over from another document.
namespace tallyra::transactions_test {
namespace {

const std::vector<std::string> columns{"TRANNO", "REFERENCE", "SN",   "PARTNO", "REFPARTNO",
                                       "MONO",   "QTY",       "VQTY", "UPRICE", "NOTES"};
const std::string copied_lines = "SELECT * FROM STKTRANDT WHERE TRANNO='T0'";
const std::string head =
    "INSERT INTO STKTRANDT(TRANNO,REFERENCE,SN,PARTNO,REFPARTNO,MONO,QTY,VQTY,UPRICE,NOTES,ADDBY,ADDDT,"
    "EDITBY,EDITDT) VALUES('T1',";

class LineCopy : public testing::Test {
 protected:
  LineCopy() { on_stage(stage); }
  static void on_stage(Stage& each) {
    each.set("CanInsert", 1)
        .finds_nothing("Select * From STKTRANHD where TRANNO='T1'")
        .finds_nothing(copied_lines);
  }
  static Outcome play(Stage& each, Fields fields) {
    return insert_head(each.client("CTranHead"), "T1", "STK010POREV", fields, "T0");
  }
  // The statements that write the lines.
  static std::string copies(const Stage& each) {
    const std::string calls = each.database_calls();
    const auto from = calls.find("C1.Execute INSERT INTO STKTRANDT");
    return from == std::string::npos ? "" : calls.substr(from);
  }

  Stage stage;
};

TEST_F(LineCopy, IsDatedInTheFormOfTheKindOfDatabase) {
  const struct {
    const char* kind;
    const char* date;
  } rows[] = {{"MSACCESS", "#2024/04/05 14:05:09#"},
              {"MSSQLSERVER", "'2024/04/05 14:05:09'"},
              {"msaccess", "'2024/04/05 14:05:09'"},
              {"", "'2024/04/05 14:05:09'"}};
  for (const auto& [kind, date] : rows) {
    Stage each(kind);
    on_stage(each);
    each.finds(copied_lines, {columns, {{"T0", "PO1", 7, "P1", "R1", "M1", 2.5, 0, 1.25, "note"}}});
    EXPECT_EQ(play(each, {{"TRANNO", "T1"}, {"ADDBY", "ANNA"}}), done);
    const std::string day = date;
    EXPECT_EQ(each.database_calls(),
              "C1.Open 'DSN=x' '' '' -1\n"
              "R1.CursorLocation = 2\n"
              "R1.Open Select * From STKTRANHD where TRANNO='T1' | C1 3 1 -1\n"
              "R1.Close\n"
              "C1.BeginTrans\n"
              "C1.Execute <GetInsertSQL STKTRANHD> | -1\n"
              "R1.Open " +
                  copied_lines +
                  " | C1 3 1 -1\n"
                  "C1.Execute " +
                  head + "'PO1',7,'P1','R1','M1',2.5,0,1.25,'note','ANNA'," + day + ",'ANNA'," + day +
                  ") | -1\n"
                  "R1.Close\n"
                  "C1.CommitTrans\n"
                  "C1.Close\n");
  }
}

TEST_F(LineCopy, TakesTheTimeForEachDateAnew) {
  int seconds = 0;
  const automation::ScopedClock clock([&] {
    return automation::Date{automation::parse_date("2024/04/05 00:00:00")->serial + seconds++ / 86400.0};
  });
  stage.finds(
      copied_lines,
      {columns, {{"T0", "", 1, "P1", "", "", 1, 1, 1, ""}, {"T0", "", 2, "P2", "", "", 1, 1, 1, ""}}});
  EXPECT_EQ(play(stage, {{"ADDBY", "ANNA"}}), done);
  EXPECT_EQ(copies(stage), "C1.Execute " + head +
                               "'',1,'P1','','',1,1,1,'','ANNA',#2024/04/05 00:00:00#,"
                               "'ANNA',#2024/04/05 00:00:01#) | -1\n"
                               "C1.Execute " +
                               head +
                               "'',2,'P2','','',1,1,1,'','ANNA',#2024/04/05 00:00:02#,"
                               "'ANNA',#2024/04/05 00:00:03#) | -1\n"
                               "R1.Close\n"
                               "C1.CommitTrans\n"
                               "C1.Close\n");
}

TEST_F(LineCopy, KeepsTheNumbersAndTheOrderFound) {
  stage.finds(copied_lines, {columns,
                             {{"T0", "", 3, "C", "", "", 1, 1, 1, ""},
                              {"T0", "", 1, "A", "", "", 1, 1, 1, ""},
                              {"T0", "", 1, "B", "", "", 1, 1, 1, ""}}});
  EXPECT_EQ(play(stage, {{"X", 1}}), done);
  const std::string tail = ",'','',1,1,1,'','',#2024/04/05 14:05:09#,'',#2024/04/05 14:05:09#) | -1\n";
  EXPECT_EQ(copies(stage), "C1.Execute " + head + "'',3,'C'" + tail + "C1.Execute " + head + "'',1,'A'" +
                               tail + "C1.Execute " + head + "'',1,'B'" + tail +
                               "R1.Close\nC1.CommitTrans\nC1.Close\n");
}

TEST_F(LineCopy, BelongsToTheFirstCreatorNamedExactly) {
  const struct {
    Fields fields;
    const char* user;
  } rows[] = {{{{"ADDBY", "ANNA"}, {"ADDBY", "BERT"}}, "ANNA"},
              {{{"addby", "ANNA"}, {"ADDBY", "BERT"}}, "BERT"},
              {{{"addby", "ANNA"}}, ""},
              {{{"ADDBY ", "ANNA"}, {"EDITBY", "BERT"}}, ""},
              {{{"ADDBY", Null{}}, {"ADDBY", "BERT"}}, ""},
              {{{"ADDBY", 12.5}}, "12.5"},
              {{{"ADDBY", "O'Neil "}}, "O'Neil "}};
  for (const auto& [fields, user] : rows) {
    Stage each;
    on_stage(each);
    each.finds(copied_lines, {columns, {{"T0", "", 1, "A", "", "", 1, 1, 1, ""}}});
    EXPECT_EQ(play(each, fields), done);
    EXPECT_TRUE(copies(each).starts_with("C1.Execute " + head + "'',1,'A','','',1,1,1,'','" + user +
                                         "',#2024/04/05 14:05:09#,'" + user +
                                         "',#2024/04/05 14:05:09#) | -1\n"))
        << copies(each);
  }
}

TEST_F(LineCopy, TakesTheCollectionsThatTheBuilderHandedBack) {
  const Fields replaced{{"ADDBY", "BUILDER"}};
  stage.set("rights.replaces 1", replaced.names).set("rights.replaces 2", replaced.values);
  stage.finds(copied_lines, {columns, {{"T0", "", 1, "A", "", "", 1, 1, 1, ""}}});
  EXPECT_EQ(play(stage, {{"ADDBY", "ANNA"}}), done);
  EXPECT_NE(copies(stage).find("'BUILDER'"), std::string::npos);
}

TEST_F(LineCopy, WritesNullAsNothingAndNumbersBare) {
  stage.finds(copied_lines, {columns,
                             {{"T0", Null{}, Null{}, Null{}, Null{}, Null{}, Null{}, Null{}, Null{}, Null{}},
                              {"T0", "it's", -1, "", "", "", 0.1, 1e15, -0.00001, "two  blanks "},
                              {"T0", "", "5", "", "", "", "x", automation::Currency{12300}, true, 7}}});
  EXPECT_EQ(play(stage, {{"X", 1}}), done);
  const std::string tail = ",'',#2024/04/05 14:05:09#,'',#2024/04/05 14:05:09#) | -1\n";
  EXPECT_EQ(copies(stage), "C1.Execute " + head + "'',,'','','',,,,''" + tail + "C1.Execute " + head +
                               "'it's',-1,'','','',0.1,1E+15,-0.00001,'two  blanks '" + tail + "C1.Execute " +
                               head + "'',5,'','','',x,1.23,True,'7'" + tail +
                               "R1.Close\nC1.CommitTrans\nC1.Close\n");
}

TEST_F(LineCopy, ReadsTheColumnsInTheirOrderAndThenTheTime) {
  const char* columns_read[] = {"REFERENCE", "SN",   "PARTNO", "REFPARTNO", "MONO",
                                "QTY",       "VQTY", "UPRICE", "NOTES"};
  constexpr std::size_t time = std::size(columns_read);
  // Everything from one column on fails, the time always: the first of them is what the client is told.
  for (std::size_t first = 0; first <= time; ++first) {
    Stage each;
    on_stage(each);
    each.finds(copied_lines, {columns, {{"T0", "", 1, "A", "", "", 1, 1, 1, ""}}});
    for (std::size_t i = first; i < time; ++i)
      each.fails(std::string("(") + columns_read[i] + ").Value", Error(100 + static_cast<int>(i), "failed"));
    const automation::ScopedClock no_clock(
        []() -> automation::Date { throw Error(100 + static_cast<int>(time), "failed"); });
    EXPECT_EQ(play(each, {{"X", 1}}), trapped(100 + static_cast<double>(first), "failed"));
  }
}

TEST_F(LineCopy, IsReadServerSideAlsoWithTheRecordsetOfTheBuilder) {
  stage.set("rights.GetInsertSQL replaces 4", another_recordset(stage));
  EXPECT_EQ(play(stage, {{"X", 1}}), done);
  EXPECT_TRUE(
      stage.database_calls().ends_with("R1.Close\n"
                                       "C2.BeginTrans\n"
                                       "C2.Execute <GetInsertSQL STKTRANHD> | -1\n"
                                       "R1.CursorLocation = 2\n"
                                       "R1.Open " +
                                       copied_lines +
                                       " | C2 3 1 -1\n"
                                       "R1.Close\n"
                                       "C2.CommitTrans\n"
                                       "C2.Close\n"))
      << stage.database_calls();
}

TEST_F(LineCopy, AFailureInTheMiddleLeavesTheTransactionUncommitted) {
  stage.finds(copied_lines,
              {columns, {{"T0", "", 1, "A", "", "", 1, 1, 1, ""}, {"T0", "", 2, "B", "", "", 1, 1, 1, ""}}});
  stage.fails("C1.Execute INSERT", Error(-2147217900, "full"), 2);
  EXPECT_EQ(play(stage, {{"X", 1}}), trapped(-2147217900, "full"));
  EXPECT_TRUE(stage.database_calls().ends_with(" ! full\n"));
  EXPECT_EQ(stage.transcript().find("RollbackTrans"), std::string::npos);
  EXPECT_EQ(stage.transcript().find("CommitTrans"), std::string::npos);
}

TEST_F(LineCopy, AValueWithoutATextEndsInTheTrap) {
  stage.finds(copied_lines, {columns, {{"T0", "", 1, Object(), "", "", 1, 1, 1, ""}}});
  EXPECT_EQ(play(stage, {{"X", 1}}), trapped(91, "Object variable or With block variable not set"));
}

}  // namespace
}  // namespace tallyra::transactions_test
