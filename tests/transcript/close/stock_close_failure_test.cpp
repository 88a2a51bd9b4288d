#include <gtest/gtest.h>

#include "tests/transcript/close/stock_close_script.h"

// The ways out of a month close that has begun: what is removed, whose error is told, what is closed, in this
// order.
namespace tallyra {
namespace {

using automation::Error;
using stage::trapped;

const std::string cleanup_set =
    "C1.BeginTrans\n"
    "C1.Execute Delete STKTRANDT.* From STKTRANDT Inner Join STKTRANHD On STKTRANDT.TRANNO=STKTRANHD.TRANNO "
    "Where STKTRANHD.TRANTYPE='STK027CLOSE' AND STKTRANHD.STATUSSN=0 | -1\n"
    "C1.Execute Delete STKTRANDT.* From STKTRANDT Inner Join STKTRANHD On STKTRANDT.TRANNO=STKTRANHD.TRANNO "
    "Where STKTRANHD.TRANTYPE='STKCLOSEALL' AND STKTRANHD.STATUSSN=0 | -1\n"
    "C1.Execute Delete * From STKTRANHD Where STKTRANHD.TRANTYPE='STK027CLOSE' AND STKTRANHD.STATUSSN=0 | "
    "-1\n"
    "C1.Execute Delete * From STKTRANHD Where STKTRANHD.TRANTYPE='STKCLOSEALL' AND STKTRANHD.STATUSSN=0 | "
    "-1\n"
    "C1.CommitTrans\n";

int cleanups(const std::string& transcript) {
  int count = 0;
  for (auto at = transcript.find(cleanup_set); at != std::string::npos;
       at = transcript.find(cleanup_set, at + 1))
    ++count;
  return count;
}

TEST(FailedMonthClose, ANumberNotIssuedForADepartmentLeavesTheFinishedDocuments) {
  MonthCloseStage company;
  company.stage.document_numbers = 1;
  company.stage.set("system.ErrNumber", 42).set("system.ErrDescription", "none left");
  EXPECT_EQ(company.close(), trapped(42, "none left"));
  EXPECT_EQ(cleanups(company.stage.transcript()), 1) << "only the one before the departments";
  EXPECT_TRUE(
      company.stage.transcript().ends_with("C2.CommitTrans\nR3.Close\nR4.Close\n"
                                           "system.GetTableKeyID 'STK027CLOSE' 'TRANNO' 'K001'\n"
                                           "system.ErrNumber\nsystem.ErrDescription\n"));
}

TEST(FailedMonthClose, TheErrorOfANumberNotIssuedIsCopiedEvenWhenItIsZero) {
  MonthCloseStage company;
  company.stage.document_numbers = 0;
  EXPECT_EQ(company.close(), trapped(0, ""));
}

TEST(FailedMonthClose, AFailedDepartmentRemovesAllUnapprovedDocuments) {
  MonthCloseStage company;
  company.stage.fails("Values('K002','STK027CLOSE'", Error(-2147217900, "bad header"));
  EXPECT_EQ(company.close(), trapped(-2147217900, "bad header"));
  EXPECT_EQ(cleanups(company.stage.transcript()), 2);
  EXPECT_TRUE(company.stage.database_calls().ends_with(cleanup_set + "C1.Close\n"));
}

TEST(FailedMonthClose, ANumberNotIssuedForTheCompanyRemovesAllAndLeavesTheConnectionUnclosed) {
  MonthCloseStage company;
  company.stage.document_numbers = 2;
  company.stage.set("system.ErrNumber", 42).set("system.ErrDescription", "none left");
  EXPECT_EQ(company.close(), trapped(42, "none left"));
  EXPECT_EQ(cleanups(company.stage.transcript()), 2);
  EXPECT_TRUE(company.stage.database_calls().ends_with("R2.Close\n" + cleanup_set));
}

TEST(FailedMonthClose, AFailedCompanyCloseRemovesAllUnapprovedDocuments) {
  MonthCloseStage company;
  company.stage.fails("system.GetLastUprice", Error(-2147467259, "no price"));
  EXPECT_EQ(company.close(), trapped(-2147467259, "no price"));
  EXPECT_EQ(cleanups(company.stage.transcript()), 2);
  EXPECT_TRUE(company.stage.database_calls().ends_with(cleanup_set + "C1.Close\n"));
}

TEST(FailedMonthClose, ABuilderErrorRemovesAllUnapprovedDocuments) {
  MonthCloseStage company;
  company.stage.set("rights.ErrNumber", 77).set("rights.ErrDescription", "no such column");
  EXPECT_EQ(company.close(), trapped(77, "no such column"));
  EXPECT_EQ(cleanups(company.stage.transcript()), 2);
  EXPECT_TRUE(company.stage.database_calls().ends_with(cleanup_set + "R1.Close\nC1.Close\n"));
}

TEST(FailedMonthClose, ABuilderErrorIsReadAfterTheCleanUp) {
  MonthCloseStage company;
  company.stage.set("rights.ErrNumber", 77).set("rights.ErrDescription", "no such column");
  EXPECT_EQ(company.close(), trapped(77, "no such column"));
  EXPECT_TRUE(company.stage.transcript().ends_with(
      "C1.CommitTrans\nrights.ErrNumber\nrights.ErrDescription\nR1.Close\nC1.Close\n"));
}

TEST(FailedMonthClose, ACleanUpThatFailsIsTheErrorThatIsTold) {
  MonthCloseStage company;
  company.stage.fails("Values('K002','STK027CLOSE'", Error(-2147217900, "bad header"));
  company.stage.fails("STKCLOSEALL' AND STKTRANHD.STATUSSN=0", Error(-2147467259, "locked"), 3);
  EXPECT_EQ(company.close(), trapped(-2147467259, "locked"));
}

}  // namespace
}  // namespace tallyra
