#include <gtest/gtest.h>

#include "tests/transcript/close/stock_close_script.h"

// The ways out of a month close that has begun: what is removed, whose error is told, what is closed, in this
// order; each whole, from the last line that a close without a failure has too.
namespace tallyra {
namespace {

using automation::Error;
using stage::trapped;

const std::string removed =
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
const std::string header_refused =
    "C3.Execute Insert Into "
    "STKTRANHD(TRANNO,TRANTYPE,STATUSSN,TRANDT,DEPTNOFR,NOTES,ADDBY,ADDDT,EDITBY,EDITDT)"
    " Values('K002','STK027CLOSE',0,#2024/04/01#,'20 ','','TESTER',#2024/04/05#,'TESTER',#2024/04/05#) | -1"
    " ! bad header\n";

TEST(FailedMonthClose, ANumberNotIssuedForADepartmentLeavesTheFinishedDocuments) {
  MonthCloseStage company;
  company.stage.document_numbers = 1;
  company.stage.set("system.ErrNumber", 42).set("system.ErrDescription", "none left");
  EXPECT_EQ(company.close(), trapped(42, "none left"));
  EXPECT_EQ(company.way_out(),
            "system.GetTableKeyID 'STK027CLOSE' 'TRANNO' 'K001'\n"
            "system.ErrNumber\nsystem.ErrDescription\n");
}

TEST(FailedMonthClose, TheErrorOfANumberNotIssuedIsCopiedEvenWhenItIsZero) {
  MonthCloseStage company;
  company.stage.document_numbers = 0;
  EXPECT_EQ(company.close(), trapped(0, ""));
  EXPECT_EQ(company.way_out(),
            "system.GetTableKeyID 'STK027CLOSE' 'TRANNO' ''\nsystem.ErrNumber\nsystem.ErrDescription\n");
}

TEST(FailedMonthClose, AFailedDepartmentRemovesAllUnapprovedDocuments) {
  MonthCloseStage company;
  company.stage.fails("Values('K002','STK027CLOSE'", Error(-2147217900, "bad header"));
  EXPECT_EQ(company.close(), trapped(-2147217900, "bad header"));
  EXPECT_EQ(company.way_out(), "C3.BeginTrans\n" + header_refused + removed + "C1.Close\n");
}

TEST(FailedMonthClose, ANumberNotIssuedForTheCompanyRemovesAllAndLeavesTheConnectionUnclosed) {
  MonthCloseStage company;
  company.stage.document_numbers = 2;
  company.stage.set("system.ErrNumber", 42).set("system.ErrDescription", "none left");
  EXPECT_EQ(company.close(), trapped(42, "none left"));
  EXPECT_EQ(company.way_out(), "system.GetTableKeyID 'STK027CLOSE' 'TRANNO' 'K002'\n" + removed +
                                   "system.ErrNumber\nsystem.ErrDescription\n");
}

TEST(FailedMonthClose, AFailedCompanyCloseRemovesAllUnapprovedDocuments) {
  MonthCloseStage company;
  company.stage.fails("system.GetLastUprice", Error(-2147467259, "no price"));
  EXPECT_EQ(company.close(), trapped(-2147467259, "no price"));
  EXPECT_EQ(company.way_out(),
            "C4.Execute INSERT INTO "
            "STKTRANDT(TRANNO,REFERENCE,SN,PARTNO,QTY,UPRICE,NOTES,ADDBY,ADDDT,EDITBY,EDITDT)"
            " VALUES('K003','',0,'A',3,3.33333333333333E-02,'Month`s close','TESTER',#2024/04/05#,'TESTER',"
            "#2024/04/05#) | -1\n"
            "system.GetLastUprice R9(PARTNO) '#2024/03/31#' '#2024/02/29#' C4 R9(MTYPESN) ! no price\n" +
                removed + "C1.Close\n");
}

TEST(FailedMonthClose, ABuilderErrorRemovesAllUnapprovedDocumentsAndIsReadThen) {
  MonthCloseStage company;
  company.stage.set("rights.ErrNumber", 77).set("rights.ErrDescription", "no such column");
  EXPECT_EQ(company.close(), trapped(77, "no such column"));
  EXPECT_EQ(company.way_out(),
            "rights.ErrNumber\n" + removed + "rights.ErrNumber\nrights.ErrDescription\nR1.Close\nC1.Close\n");
}

TEST(FailedMonthClose, ACleanUpThatFailsIsTheErrorThatIsTold) {
  MonthCloseStage company;
  company.stage.fails("Values('K002','STK027CLOSE'", Error(-2147217900, "bad header"));
  company.stage.fails("STKCLOSEALL' AND STKTRANHD.STATUSSN=0", Error(-2147467259, "locked"), 3);
  EXPECT_EQ(company.close(), trapped(-2147467259, "locked"));
  EXPECT_EQ(company.way_out(), "C3.BeginTrans\n" + header_refused +
                                   removed.substr(0, removed.find(" | -1\nC1.Execute Delete * From")) +
                                   " | -1 ! locked\n");
}

}  // namespace
}  // namespace tallyra
