#include <gtest/gtest.h>

#include "automation/decimal.h"
#include "tests/support/baseline.h"
#include "tests/support/queries.h"
#include "tests/transcript/stockcheck/stocktaking_script.h"

// What the approval of a stocktaking posts: the period, the differences, the document and every way it can
// end.
namespace tallyra::stockcheck_test {
namespace {

using automation::Date;
using automation::Error;
using automation::Null;
using automation::Value;
using stage::done;
using stage::trapped;

const std::string header =
    "C1.Execute Insert Into STKTRANHD(TRANNO,TRANTYPE,REFERENCE,TRANDT,DEPTNOFR,DEPTNMFR,STATUS,STATUSSN,"
    "STATUSBY,STATUSDT,MAKEBY,NOTES,ADDBY,ADDDT,EDITBY,EDITDT) Values(";
const std::string line =
    "C1.Execute Insert Into STKTRANDT(TRANNO,REFERENCE,SN,PARTNO,MONO,QTY,UPRICE,NOTES,ADDBY,ADDDT,EDITBY,"
    "EDITDT) Values(";

// A sheet with a line of every kind: short, equal, without quantity, over, without price.
void prepare(StocktakingStage& check) {
  check.sheet({{"A", 0.0, 1.0 / 30},
               {"B", 3.0},
               {"C", Null{}},
               {"D", 5.0, Null{}, "Store, first shelf"},
               {"E", 0.3, 1.5}});
  check.moved("A", 3.0, Null{}).moved("B", 2.0, 1.0).moved("C", 3.0, Null{});
  check.moved("D", Null{}, Null{}).moved("E", -7.0, 0.1);
}

TEST(CheckPosting, TheWholeApprovalOnAccess) {
  StocktakingStage check("MSACCESS");
  prepare(check);
  EXPECT_EQ(check.approve(), posted);
  EXPECT_EQ(check.stage.transcript(),
            stage::approved("transcript/stockcheck/check_head_posting.access.txt", check.stage.transcript()));
}

TEST(CheckPosting, TheWholeApprovalOnSqlServer) {
  StocktakingStage check("MSSQLSERVER");
  prepare(check);
  EXPECT_EQ(check.approve(), posted);
  EXPECT_EQ(
      check.stage.transcript(),
      stage::approved("transcript/stockcheck/check_head_posting.sqlserver.txt", check.stage.transcript()));
}

TEST(CheckPosting, AKindThatIsNotNamedGetsQuotes) {
  StocktakingStage check("");
  prepare(check);
  EXPECT_EQ(check.approve(), posted);
  EXPECT_EQ(check.count("#"), 0);
  EXPECT_NE(check.after(header).find("'2024/03/31'"), std::string::npos);
}

TEST(CheckPosting, ALineIsTheCountedQuantityLessWhatMoved) {
  const struct {
    const char* what;
    Value counted;
    Value out;
    Value in;
    const char* quantity;  // of the line; empty when there is none
  } rows[] = {
      {"counted against nothing", 5.0, Null{}, Null{}, "5"},
      {"less counted than moved", 0.0, 3.0, Null{}, "-3"},
      {"issues and transfers both count", 3.0, 2.0, 1.0, ""},
      {"transfers alone", 3.0, Null{}, 1.0, "2"},
      {"a sum below zero is nothing", 5.0, -2.0, Null{}, "5"},
      {"and takes nothing from the other", 5.0, 3.0, -2.0, "2"},
      {"nor the other way round", 5.0, -2.0, 3.0, "2"},
      {"a sum of zero", 0.0, 0.0, 0.0, ""},
      {"counted below zero", -1.0, Null{}, Null{}, "-1"},
      {"without quantity", Null{}, 3.0, Null{}, ""},
      {"without quantity and movement", Null{}, Null{}, Null{}, ""},
      {"numbers are not rounded", 0.3, 0.1, Null{}, "0.2"},
      {"nor cut", 1.0 / 3, Null{}, Null{}, "0.333333333333333"},
      {"small numbers", 0.00002, 0.00001, Null{}, "0.00001"},
      {"large numbers", 2e15, 1e15, Null{}, "1E+15"},
      {"whole numbers", 7, 3, 1, "3"},
      {"currency", automation::Currency{12500}, 0.25, Null{}, "1"},
      {"a number as text", "5", "2", "1", "2"},
  };
  for (const auto& [what, counted, out, in, quantity] : rows) {
    StocktakingStage check;
    check.sheet({{"P", counted}}).moved("P", out, in);
    EXPECT_EQ(check.approve(), posted) << what;
    const std::string text(quantity);
    EXPECT_EQ(check.after(line), text.empty()
                                     ? ""
                                     : "'K001','S1',0,'P',''," + text +
                                           ",2.5,'Counted','SYSTEM',#2024/04/05#,'SYSTEM',#2024/04/05#) | -1")
        << what;
    EXPECT_EQ(check.count(header), text.empty() ? 0 : 1) << what;
    EXPECT_EQ(check.count("R4.Open"), 2) << what;
  }
}

TEST(CheckPosting, AMovementQueryWithoutRowsIsNoMovement) {
  StocktakingStage check;
  check.sheet({{"P", 5.0}});
  EXPECT_EQ(check.approve(), posted);
  EXPECT_TRUE(check.after(line).starts_with("'K001','S1',0,'P','',5,"));
}

TEST(CheckPosting, APriceIsWrittenInItsTextAndAMissingOneAsZero) {
  const struct {
    Value price;
    const char* text;
  } rows[] = {{Null{}, "0"}, {0.0, "0"},      {1.0 / 30, "3.33333333333333E-02"},
              {12, "12"},    {1.5F, "1.5"},   {automation::Currency{123400}, "12.34"},
              {-1.0, "-1"},  {"1.50", "1.50"}};
  for (const auto& [price, text] : rows) {
    StocktakingStage check;
    check.sheet({{"P", 5.0, price}});
    EXPECT_EQ(check.approve(), posted);
    EXPECT_TRUE(check.after(line).starts_with("'K001','S1',0,'P','',5," + std::string(text) + ",'Counted'"))
        << check.after(line);
  }
}

TEST(CheckPosting, TheHeaderNamesTheDepartmentOfTheFirstLineThatDiffers) {
  StocktakingStage check;
  check.sheet({{"A", 1.0, 1.0, "first"}, {"B", 2.0, 1.0, "second"}, {"C", 3.0, 1.0, "third"}});
  check.moved("A", 1.0, Null{});
  EXPECT_EQ(check.approve(), posted);
  EXPECT_EQ(check.after(header),
            "'K001','STKCHECKISS','S1',#2024/03/31#,'10','second','Approved',1,'SYSTEM',"
            "#2024/04/05 14:05:09#,'SYSTEM','Counted','SYSTEM',#2024/04/05 14:05:09#,'SYSTEM',"
            "#2024/04/05 14:05:09#) | -1");
  EXPECT_EQ(check.count(header), 1);
  EXPECT_EQ(check.count(line), 2);
}

TEST(CheckPosting, AStocktakingWithoutDifferencesGetsNoDocumentAndIsCommittedTwiceAllTheSame) {
  StocktakingStage check;
  check.sheet({{"A", 3.0}}).moved("A", 3.0, Null{});
  EXPECT_EQ(check.approve(), posted);
  EXPECT_EQ(check.count("GetTableKeyID"), 0);
  EXPECT_EQ(check.count("Insert Into"), 0);
  EXPECT_TRUE(check.stage.transcript().ends_with("R4.Close\nC1.CommitTrans\nC1.CommitTrans\n"));
}

TEST(CheckPosting, WhereTheSecondCommitIsNoErrorTheApprovalSucceeds) {
  StocktakingStage check;
  check.stage.ignores_needless_commits = true;
  check.sheet({{"A", 3.0}});
  EXPECT_EQ(check.approve(), done);
  EXPECT_TRUE(check.stage.database_calls().ends_with(" | -1\nC1.CommitTrans\nC1.CommitTrans\nC1.Close\n"));
}

TEST(CheckPosting, AStocktakingWithoutLinesIsCommittedOnceAndSucceeds) {
  StocktakingStage check;
  check.stage.finds_nothing(stage::counted_lines);
  EXPECT_EQ(check.approve(), done);
  EXPECT_TRUE(
      check.stage.database_calls().ends_with("R2.CursorLocation = 3\n"
                                             "R3.CursorLocation = 3\n"
                                             "R4.CursorLocation = 3\n"
                                             "R2.Open " +
                                             stage::counted_lines +
                                             " | C1 3 1 -1\n"
                                             "R2.ActiveConnection = Nothing\n"
                                             "C1.CommitTrans\n"
                                             "C1.Close\n"));
}

TEST(CheckPosting, WithoutACloseThePeriodBeginsAfterTheFixedDay) {
  for (const char* kind : {"MSACCESS", "MSSQLSERVER", ""}) {
    StocktakingStage check(kind);
    check.period_end = "2024/01/15";
    check.period_begin = "2004/01/01";
    check.sheet({{"P", 5.0}}, Date{45306}).moved("P", 5.0, Null{});
    EXPECT_EQ(check.approve(), posted);
    EXPECT_EQ(check.count(check.close_query("2024/01/15")), 1);
    EXPECT_EQ(check.count(check.outgoing_query("P")), 1) << kind;
    EXPECT_EQ(check.count(check.incoming_query("P")), 1) << kind;
    EXPECT_EQ(check.count("Insert Into"), 0);
  }
}

TEST(CheckPosting, TimesOfDayOfCountAndCloseAreKept) {
  StocktakingStage check;
  check.period_begin = "2024/02/29 18:30:00";
  check.period_end = "2024/03/31 12:00:00";
  check.stage.finds(check.close_query(check.period_end),
                    {{"CLOSEDT"}, {{Date{45351 + 18.5 / 24}}, {Date{45322}}}});
  check.sheet({{"P", 5.0}}, Date{45382.5});
  EXPECT_EQ(check.approve(), posted);
  EXPECT_EQ(check.count(check.outgoing_query("P")), 1);
  EXPECT_TRUE(check.after(header).starts_with("'K001','STKCHECKISS','S1',#2024/03/31 12:00:00#,"));
}

TEST(CheckPosting, AMissingDayOfTheCountIsAnEmptyLiteral) {
  StocktakingStage check("MSSQLSERVER");
  check.period_begin = "2004/01/01";
  check.period_end = "";
  check.sheet({{"P", 5.0}}, Null{});
  EXPECT_EQ(check.approve(), posted);
  EXPECT_EQ(check.count(check.close_query("")), 1);
  EXPECT_TRUE(check.after(header).starts_with("'K001','STKCHECKISS','S1','','10',"));
}

TEST(CheckPosting, AtMidnightTheTimeStampsStillHaveATimeOfDay) {
  StocktakingStage check;
  const automation::ScopedClock midnight([] { return Date{45387}; });
  check.sheet({{"P", 5.0}});
  EXPECT_EQ(check.approve(), posted);
  EXPECT_NE(check.after(header).find("'SYSTEM',#2024/04/05 00:00:00#,'SYSTEM'"), std::string::npos);
  EXPECT_TRUE(check.after(line).ends_with("'SYSTEM',#2024/04/05#,'SYSTEM',#2024/04/05#) | -1"));
}

TEST(CheckPosting, TheClockIsReadOnceForTheWholeDocument) {
  StocktakingStage check;
  int readings = 0;
  const automation::ScopedClock passing([&readings] { return Date{45387.0 + readings++}; });
  check.sheet({{"A", 5.0}, {"B", 5.0}});
  EXPECT_EQ(check.approve(), posted);
  EXPECT_EQ(readings, 1);
}

TEST(CheckPosting, ANumberIsAskedForUntilOneComesAtMostThreeTimes) {
  for (const int withheld : {0, 1, 2}) {
    StocktakingStage check;
    check.stage.numbers_withheld = withheld;
    check.sheet({{"A", 5.0}, {"B", 5.0}});
    EXPECT_EQ(check.approve(), posted);
    EXPECT_EQ(check.count("system.GetTableKeyID 'STKCHECKISS' 'TRANNO' '' 2024 4 5"), withheld + 1);
    EXPECT_EQ(check.count("system.GetTableKeyID"), withheld + 1);
    EXPECT_EQ(check.count(header + "'K001',"), 1);
    EXPECT_EQ(check.count(line + "'K001',"), 2);
  }
}

TEST(CheckPosting, TheNumberIsAskedForWithTheDayInThreeNumbersAndAVariableThatReceivesIt) {
  StocktakingStage check;
  check.stage.numbers_withheld = 1;
  check.sheet({{"A", 5.0}});
  EXPECT_EQ(check.approve(), posted);
  EXPECT_EQ(check.stage.arguments("system.GetTableKeyID"),
            "text 'STKCHECKISS', text 'TRANNO', &text '', int16 2024, int16 4, int16 5");
}

TEST(CheckPosting, OnlyTheLinesAndTheSumsLetTheConnectionGo) {
  StocktakingStage check;
  check.sheet({{"A", 5.0}, {"B", 5.0}});
  EXPECT_EQ(check.approve(), posted);
  EXPECT_EQ(check.count("R2.ActiveConnection = Nothing"), 1);
  EXPECT_EQ(check.count("R3.ActiveConnection"), 0) << "the close look-up stays attached";
  EXPECT_EQ(check.count("R4.ActiveConnection = Nothing"), 4);
  EXPECT_EQ(check.count("R2.Close"), 0) << "the lines are let go as they are";
  EXPECT_EQ(check.count("R3.Close"), 1);
  EXPECT_EQ(check.count("R4.Close"), 4);
}

TEST(CheckPosting, ADocumentWithoutANumberIsWrittenAndTheNextLineAsksAgain) {
  StocktakingStage check;
  check.stage.numbers_withheld = 4;
  check.sheet({{"A", 5.0}, {"B", 6.0}, {"C", 7.0}});
  EXPECT_EQ(check.approve(), posted);
  EXPECT_EQ(check.count("system.GetTableKeyID"), 5);
  EXPECT_EQ(check.count(header + "'','STKCHECKISS','S1',"), 1);
  EXPECT_EQ(check.count(line + "'','S1',0,'A',"), 1);
  EXPECT_EQ(check.count(header + "'K001','STKCHECKISS','S1',"), 1);
  EXPECT_EQ(check.count(line + "'K001','S1',0,'B',"), 1);
  EXPECT_EQ(check.count(line + "'K001','S1',0,'C',"), 1);
}

TEST(CheckPosting, WithoutAnyNumberEveryLineHasAHeaderOfItsOwn) {
  StocktakingStage check;
  check.stage.document_numbers = 0;
  check.sheet({{"A", 5.0}, {"B", 6.0}});
  EXPECT_EQ(check.approve(), posted);
  EXPECT_EQ(check.count("system.GetTableKeyID"), 6);
  EXPECT_EQ(check.count(header + "'',"), 2);
  EXPECT_EQ(check.count(line + "'',"), 2);
}

TEST(CheckPosting, EveryApprovalPostsADocumentOfItsOwn) {
  StocktakingStage check;
  check.sheet({{"P", 5.0}});
  EXPECT_EQ(check.approve(), posted);
  check.stage.clear();
  EXPECT_EQ(check.approve(), posted);
  EXPECT_EQ(check.count("Values('K002','STKCHECKISS','S1',"), 1);
  EXPECT_EQ(check.count("Values('K002','S1',0,'P',"), 1);
}

TEST(CheckPosting, TextsAreWrittenAsTheyStand) {
  StocktakingStage check;
  check.stage.set("wording.StatusApproved", Null{}).set("wording.NameCheck", "it's");
  check.sheet({{"1/4\" nut's", 5.0, 1.0, "Bob's"}});
  EXPECT_EQ(check.approve(), posted);
  EXPECT_EQ(check.count(check.outgoing_query("1/4\" nut's")), 1);
  EXPECT_NE(check.after(header).find(",'10','Bob's','',1,'SYSTEM'"), std::string::npos);
  EXPECT_NE(check.after(header).find(",'SYSTEM','it's','SYSTEM',"), std::string::npos);
  EXPECT_TRUE(check.after(line).starts_with("'K001','S1',0,'1/4\" nut's','',5,1,'it's','SYSTEM'"));
}

TEST(CheckPosting, AnErrorEndsTheApprovalWithoutCommitOrRollback) {
  for (const char* failing :
       {"SELECT STKCHECKHD", "R2.ActiveConnection", "R2.MoveFirst", "Select TOP 1 * From STKCLOSEHD",
        "DEPTNOFR='10'", "R4.ActiveConnection", "DEPTNOTO='10'", "system.GetTableKeyID",
        "wording.StatusApproved", "wording.NameCheck", "Insert Into STKTRANHD", "Insert Into STKTRANDT"}) {
    StocktakingStage check;
    check.sheet({{"P", 5.0}});
    check.stage.fails(failing, Error(-2147467259, "gone"));
    EXPECT_EQ(check.approve(), trapped(-2147467259, "gone")) << failing;
    EXPECT_TRUE(check.stage.transcript().ends_with(" ! gone\n")) << failing;
    EXPECT_EQ(check.count("CommitTrans"), 0) << failing;
    EXPECT_EQ(check.count("RollbackTrans"), 0) << failing;
    EXPECT_LE(check.stage.alive(), 4) << failing;
  }
}

TEST(CheckPosting, AQuantityThatIsNoNumberEndsTheApproval) {
  StocktakingStage check;
  check.sheet({{"A", 5.0}, {"B", "some"}, {"C", 5.0}});
  EXPECT_EQ(check.approve(), trapped(13, "Type mismatch"));
  EXPECT_EQ(check.count(line), 1);
  EXPECT_EQ(check.count("CommitTrans"), 0);
}

}  // namespace
}  // namespace tallyra::stockcheck_test
