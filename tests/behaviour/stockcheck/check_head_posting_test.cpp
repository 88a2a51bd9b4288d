#include <gtest/gtest.h>

#include "automation/convert.h"
#include "tests/behaviour/stockcheck/counting_company.h"

// Approvals of stocktakings on a real database: rows before, call, rows after.
namespace tallyra::behaviour {
namespace {

using automation::Object;
using automation::ref;
using automation::Value;
using stage::done;
using stage::Fields;

class CheckPostingOnEachEngine : public testing::TestWithParam<const char*> {
 protected:
  CountingCompany company{GetParam()};
};

INSTANTIATE_TEST_SUITE_P(Kinds, CheckPostingOnEachEngine, testing::Values("MSACCESS", "MSSQLSERVER"),
                         [](const auto& param) { return std::string(param.param); });

TEST_P(CheckPostingOnEachEngine, APartIsPostedWithWhatWasCountedLessWhatMoved) {
  company.check("S1", "2024-03-31", "10");
  company.counted("S1", "P1", "5");            // nothing moved
  company.counted("S1", "P2", "0");            // 3 went out
  company.counted("S1", "P3", "3");            // 2 went out, 1 came in: no line
  company.counted("S1", "P4", "NULL");         // not counted: no line
  company.counted("S1", "P5", "2.5", "NULL");  // without price
  company.counted("S1", "P6", "4");            // more came back than went out
  company.moves("T1", "STK020MISS", "2024-03-10", "10", "", "P2", "3");
  company.moves("T2", "STK020MISS", "2024-03-10", "10", "", "P3", "2");
  company.moves("T3", "STK024MRPL", "2024-03-10", "20", "10", "P3", "1");
  company.moves("T4", "STK020MISS", "2024-03-10", "10", "", "P4", "7");
  company.moves("T5", "STK021RTN1", "2024-03-10", "10", "", "P6", "-7");
  expect_posted(company.approve("S1"));
  EXPECT_EQ(company.posted_lines(),
            "P1|5|1.5\n"
            "P2|-3|1.5\n"
            "P5|2.5|0\n"
            "P6|4|1.5\n");
}

TEST_P(CheckPostingOnEachEngine, ALineWithoutQuantityIsNoDifferenceEvenAgainstNothing) {
  company.check("S1", "2024-03-31", "10");
  company.counted("S1", "P1", "NULL");
  company.counted("S1", "P2", "0");
  expect_posted(company.approve("S1"));
  EXPECT_EQ(company.postings(), "0|0");
}

TEST_P(CheckPostingOnEachEngine, ASumOfZeroOrLessCountsAsNothing) {
  company.check("S1", "2024-03-31", "10");
  for (const char* part : {"P1", "P2", "P3"}) company.counted("S1", part, "5");
  company.counted("S1", "P4", "0");
  company.moves("T1", "STK020MISS", "2024-03-10", "10", "", "P1", "4");
  company.moves("T2", "STK021RTN1", "2024-03-10", "10", "", "P1", "-4");
  company.moves("T3", "STK020MISS", "2024-03-10", "10", "", "P2", "3");
  company.moves("T4", "STK024MRPL", "2024-03-10", "20", "10", "P2", "-2");
  company.moves("T5", "STK021RTN1", "2024-03-10", "10", "", "P3", "-2");
  company.moves("T6", "STK024MRPL", "2024-03-10", "20", "10", "P3", "3");
  company.moves("T7", "STK021RTN1", "2024-03-10", "10", "", "P4", "-3");
  expect_posted(company.approve("S1"));
  EXPECT_EQ(company.posted_lines(), "P1|5|1.5\nP2|2|1.5\nP3|2|1.5\n");
}

TEST_P(CheckPostingOnEachEngine, TheTimeOfDayOfTheCountCounts) {
  company.check("S1", "2024-03-31", "10");
  company.check("S2", "2024-03-31 12:00:00", "20");
  company.counted("S1", "P1", "10");
  company.counted("S2", "P1", "10");
  company.moves("T1", "STK020MISS", "2024-03-31 00:00:00", "10", "", "P1", "1");
  company.moves("T2", "STK020MISS", "2024-03-31 00:00:01", "10", "", "P1", "2");
  company.moves("T3", "STK020MISS", "2024-03-31 12:00:00", "20", "", "P1", "3");
  company.moves("T4", "STK020MISS", "2024-03-31 12:00:01", "20", "", "P1", "4");
  expect_posted(company.approve("S1"));
  expect_posted(company.approve("S2"));
  EXPECT_EQ(company.posted_lines(), "P1|9|1.5\nP1|7|1.5\n");
  EXPECT_EQ(company.rows("SELECT TRANDT FROM STKTRANHD WHERE TRANTYPE='STKCHECKISS' ORDER BY 1"),
            "2024/03/31\n2024/03/31 12:00:00\n");
}

TEST_P(CheckPostingOnEachEngine, TheDocumentSaysWhereItComesFrom) {
  company.check("S1", "2024-03-31", "10");
  company.counted("S1", "P2", "5");
  expect_posted(company.approve("S1"));
  EXPECT_EQ(
      company.rows("SELECT TRANTYPE,REFERENCE,TRANDT,DEPTNOFR,DEPTNMFR,DEPTNOTO,STATUS,STATUSSN,STATUSBY,"
                   "STATUSDT,MAKEBY,NOTES,ADDBY,ADDDT,EDITBY,EDITDT FROM STKTRANHD"),
      "STKCHECKISS|S1|2024/03/31|10|Store|NULL|Approved|1|SYSTEM|2024/04/05 14:05:09|SYSTEM|"
      "Stocktaking adjustment|SYSTEM|2024/04/05 14:05:09|SYSTEM|2024/04/05 14:05:09\n");
  EXPECT_EQ(company.rows("SELECT CASE WHEN L.TRANNO=H.TRANNO THEN 1 ELSE 0 END,CASE WHEN L.TRANNO<>'' THEN 1 "
                         "ELSE 0 END,L.REFERENCE,L.SN,L.PARTNO,L.REFPARTNO,L.MONO,L.QTY,"
                         "L.VQTY,L.UPRICE,L.NOTES,L.ADDBY,L.ADDDT,L.EDITBY,L.EDITDT "
                         "FROM STKTRANDT L, STKTRANHD H"),
            "1|1|S1|0|P2|NULL||5|NULL|1.5|Stocktaking adjustment|SYSTEM|2024/04/05|SYSTEM|2024/04/05\n");
  EXPECT_EQ(company.rows("SELECT STATUS,STATUSSN,ADDBY FROM STKCHECKHD"), "APPROVED|1|CLERK\n")
      << "the header itself, in the transaction that the posting has committed";
}

TEST_P(CheckPostingOnEachEngine, LinesComeInTheOrderOfTheirParts) {
  company.check("S1", "2024-03-31", "10");
  for (const char* part : {"P6", "P2", "P4", "P1"}) company.counted("S1", part, "1");
  expect_posted(company.approve("S1"));
  EXPECT_EQ(company.posted_lines(), "P1|1|1.5\nP2|1|1.5\nP4|1|1.5\nP6|1|1.5\n");
}

TEST_P(CheckPostingOnEachEngine, ThePeriodBeginsAfterTheLastCloseAndEndsOnTheDayOfTheCount) {
  company.closed("2024-01-31");
  company.closed("2024-02-29");
  company.closed("2024-04-30");
  company.check("S1", "2024-03-31", "10");
  for (const char* part : {"P1", "P2", "P3", "P4", "P5"}) company.counted("S1", part, "10");
  company.moves("T1", "STK020MISS", "2024-02-29", "10", "", "P1", "1");
  company.moves("T2", "STK020MISS", "2024-03-01", "10", "", "P2", "2");
  company.moves("T3", "STK020MISS", "2024-03-31", "10", "", "P3", "3");
  company.moves("T4", "STK020MISS", "2024-04-01", "10", "", "P4", "4");
  company.moves("T5", "STK024MRPL", "2024-02-29", "", "10", "P5", "1");
  company.moves("T6", "STK024MRPL", "2024-03-31", "", "10", "P5", "2");
  company.moves("T7", "STK024MRPL", "2024-04-01", "", "10", "P5", "4");
  expect_posted(company.approve("S1"));
  EXPECT_EQ(company.posted_lines(), "P1|10|1.5\nP2|8|1.5\nP3|7|1.5\nP4|10|1.5\nP5|8|1.5\n");
}

TEST_P(CheckPostingOnEachEngine, ACloseOnTheDayOfTheCountLeavesNoPeriod) {
  company.closed("2024-03-31");
  company.check("S1", "2024-03-31", "10");
  company.counted("S1", "P1", "10");
  company.moves("T1", "STK020MISS", "2024-03-31", "10", "", "P1", "3");
  expect_posted(company.approve("S1"));
  EXPECT_EQ(company.posted_lines(), "P1|10|1.5\n");
}

TEST_P(CheckPostingOnEachEngine, WithoutACloseThePeriodBeginsAfterTheFirstOfJanuary2004) {
  company.closed("2024-04-30");
  company.check("S1", "2024-03-31", "10");
  company.counted("S1", "P1", "10");
  company.counted("S1", "P2", "10");
  company.moves("T1", "STK020MISS", "2004-01-01", "10", "", "P1", "3");
  company.moves("T2", "STK020MISS", "2004-01-02", "10", "", "P2", "3");
  expect_posted(company.approve("S1"));
  EXPECT_EQ(company.posted_lines(), "P1|10|1.5\nP2|7|1.5\n");
}

TEST_P(CheckPostingOnEachEngine, EveryTypeAndStatusCountsThatLeavesTheDepartmentButOnlyTransfersThatEnterIt) {
  company.check("S1", "2024-03-31", "10");
  for (const char* part : {"P1", "P2", "P3"}) company.counted("S1", part, "10");
  company.moves("T1", "STK010POREV", "2024-03-10", "10", "", "P1", "1");
  company.moves("T2", "STK030SHIP", "2024-03-10", "10", "", "P1", "2", 0);
  company.moves("T3", "ANYTHING", "2024-03-10", "10 ", "", "P1", "3", 3);
  company.moves("T4", "STK024MRPL", "2024-03-10", "20", "10", "P2", "4", 0);
  company.moves("T5", "STK022REVMO", "2024-03-10", "20", "10", "P2", "5");
  company.moves("T6", "STK020MISS", "2024-03-10", "20", "", "P3", "6");
  expect_posted(company.approve("S1"));
  EXPECT_EQ(company.posted_lines(), "P1|4|1.5\nP2|6|1.5\nP3|10|1.5\n");
}

TEST_P(CheckPostingOnEachEngine, AStocktakingAfterACloseCountsTheCloseDocument) {
  company.moves("T1", "STK010POREV", "2024-02-10", "10", "", "P1", "8");
  company.moves("T2", "STK024MRPL", "2024-02-20", "20", "10", "P1", "1");
  Fields record{{"CLOSEDT", "2024/02/29"}, {"STATUSSN", 0}};
  const Object close = company.client("CStockClose");
  ASSERT_EQ(
      stage::outcome_of(close, close.call("Insert", "2024/02/29", ref(record.names), ref(record.values))),
      done);
  company.moves("T3", "STK020MISS", "2024-03-10", "10", "", "P1", "2");
  company.check("S1", "2024-03-31", "10");
  company.counted("S1", "P1", "12");
  expect_posted(company.approve("S1"));
  EXPECT_EQ(company.posted_lines(), "P1|1|1.5\n") << "12 counted, 9 carried over by the close, 2 moved since";
}

TEST_P(CheckPostingOnEachEngine, ApprovingTwicePostsTwiceAndUnapprovalRemovesAllPostings) {
  company.check("S1", "2024-03-31", "10");
  company.check("S2", "2024-03-31", "20");
  company.counted("S1", "P1", "5");
  company.counted("S1", "P2", "6");
  company.counted("S2", "P1", "7");
  const std::string before = company.everything();
  expect_posted(company.approve("S1"));
  EXPECT_EQ(company.postings(), "1|2");
  expect_posted(company.approve("S1"));
  // The first posting is a movement out of the department: P1 is 5 against 5 now.
  EXPECT_EQ(company.postings(), "1|2");
  company.run({"UPDATE STKCHECKDT SET QTY=9 WHERE PARTNO='P1' AND CHECKNO='S1'"});
  expect_posted(company.approve("S1"));
  EXPECT_EQ(company.postings(), "2|3");
  EXPECT_EQ(company.posted_lines(), "P1|5|1.5\nP2|6|1.5\nP1|4|1.5\n");
  expect_posted(company.approve("S2"));
  EXPECT_EQ(company.postings(), "3|4");
  EXPECT_EQ(company.update("S1", "UNAPPROVED"), done);
  EXPECT_EQ(company.postings(), "1|1");
  EXPECT_EQ(company.posted_lines(), "P1|7|1.5\n") << "the other check's";
  EXPECT_EQ(company.update("S2", "UNAPPROVED"), done);
  EXPECT_EQ(company.update("S2", "UNAPPROVED"), done) << "nothing left to remove";
  company.run({"UPDATE STKCHECKDT SET QTY=5 WHERE PARTNO='P1' AND CHECKNO='S1'",
               "UPDATE STKCHECKHD SET STATUS=NULL"});
  EXPECT_EQ(company.everything(), before);
}

// 0.1 is missing and posted; then 0.2 that went out and 0.1 that came in are not quite the 0.3 that was
// counted.
TEST_P(CheckPostingOnEachEngine, ASecondApprovalPostsWhatRoundingHasLeft) {
  company.check("S1", "2024-03-31", "10");
  company.counted("S1", "P1", "0.3");
  company.moves("T1", "STK020MISS", "2024-03-10", "10", "", "P1", "0.1");
  company.moves("T2", "STK024MRPL", "2024-03-10", "20", "10", "P1", "0.1");
  expect_posted(company.approve("S1"));
  EXPECT_EQ(company.posted_lines(), "P1|0.1|1.5\n");
  expect_posted(company.approve("S1"));
  EXPECT_EQ(company.postings(), "2|2");
  EXPECT_EQ(company.rows("SELECT Count(*) FROM STKTRANDT WHERE SN=0 AND Abs(QTY)<1e-15 AND QTY<>0"), "1\n");
}

TEST_P(CheckPostingOnEachEngine, AStocktakingWithoutLinesSucceedsAndPostsNothing) {
  company.check("S1", "2024-03-31", "10");
  EXPECT_EQ(company.approve("S1"), done);
  EXPECT_EQ(company.postings(), "0|0");
  EXPECT_EQ(company.rows("SELECT STATUSSN FROM STKCHECKHD"), "1\n");
}

TEST_P(CheckPostingOnEachEngine, AStocktakingOfAnUnknownDepartmentHasNoLines) {
  company.check("S1", "2024-03-31", "99");
  company.counted("S1", "P1", "5");
  EXPECT_EQ(company.approve("S1"), done);
  EXPECT_EQ(company.postings(), "0|0");
}

TEST_P(CheckPostingOnEachEngine, ATagInAnotherCasePostsNothing) {
  company.check("S1", "2024-03-31", "10");
  company.counted("S1", "P1", "5");
  EXPECT_EQ(company.update("S1", "approved"), done);
  EXPECT_EQ(company.postings(), "0|0");
}

TEST_P(CheckPostingOnEachEngine, AnErrorAmongTheLinesLeavesNothingBehind) {
  company.check("S1", "2024-03-31", "10");
  for (const char* part : {"P1", "P2", "P3"}) company.counted("S1", part, "1");
  company.refuse("NO_P3", "INSERT", "STKTRANDT", "NEW.PARTNO='P3'", "P3 is not allowed");
  const std::string before = company.everything();
  const stage::Outcome outcome = company.approve("S1");
  EXPECT_EQ(outcome.result, 0);
  EXPECT_NE(outcome.description.find("P3 is not allowed"), std::string::npos) << outcome.description;
  EXPECT_EQ(company.everything(), before);
}

TEST_P(CheckPostingOnEachEngine, TheHeaderReadAfterwardsTellsWhetherTheApprovalIsStored) {
  const Object head = company.client("CCheckHead");
  const auto approve_at = [&](double moment) {
    Fields fields{{"STATUSSN", 1}, {"STATUSDT", automation::Date{moment}}};
    Value tag = "APPROVED";
    return stage::outcome_of(head,
                             head.call("Update", "S1", ref(fields.names), ref(fields.values), ref(tag)));
  };
  const auto header_tells = [&](const std::string& moment) {
    Fields read;
    EXPECT_EQ(stage::outcome_of(head, head.call("Read", "S1", ref(read.names), ref(read.values))), done);
    return read.text().find("STATUSSN=1 STATUSBY=Null STATUSDT=" + moment + " ") != std::string::npos;
  };
  company.check("S1", "2024-03-31", "10");
  company.counted("S1", "P1", "5");
  expect_posted(approve_at(45387.5));
  EXPECT_TRUE(header_tells("2024/04/05 12:00:00"));
  EXPECT_EQ(company.postings(), "1|1");

  company.counted("S1", "P2", "5");
  company.refuse("NO_ROOM", "INSERT", "STKTRANDT", "", "full");
  EXPECT_EQ(approve_at(45388.5).result, 0);
  EXPECT_FALSE(header_tells("2024/04/06 12:00:00"));
  EXPECT_TRUE(header_tells("2024/04/05 12:00:00")) << "still the first approval's";
  EXPECT_EQ(company.postings(), "1|1");
}

TEST_P(CheckPostingOnEachEngine, AnErrorWhileItIsTakenBackLeavesThePosting) {
  company.check("S1", "2024-03-31", "10");
  company.counted("S1", "P1", "5");
  expect_posted(company.approve("S1"));
  company.refuse("KEPT", "DELETE", "STKTRANHD", "", "the document is kept");
  const std::string before = company.everything();
  const stage::Outcome outcome = company.update("S1", "UNAPPROVED");
  EXPECT_EQ(outcome.result, 0);
  EXPECT_NE(outcome.description.find("the document is kept"), std::string::npos) << outcome.description;
  EXPECT_EQ(company.everything(), before) << "its lines and the status of the check too";
}

TEST_P(CheckPostingOnEachEngine, DeletingAnApprovedStocktakingLeavesItsPosting) {
  company.check("S1", "2024-03-31", "10");
  company.counted("S1", "P1", "5");
  expect_posted(company.approve("S1"));
  const Object head = company.client("CCheckHead");
  EXPECT_EQ(stage::outcome_of(head, head.call("Delete", "S1")), done);
  EXPECT_EQ(company.rows("SELECT * FROM STKCHECKHD") + company.rows("SELECT * FROM STKCHECKDT"), "");
  EXPECT_EQ(company.posted_lines(), "P1|5|1.5\n");
}

}  // namespace
}  // namespace tallyra::behaviour
