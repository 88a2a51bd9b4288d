#include "client/month_end/check.h"

#include "client/database/own_tables.h"
#include "tests/behaviour/client/month_end/closing_client.h"

// Each finding on a company that has exactly that fault: it is found, and nothing else is.
namespace tallyra::client {
namespace {

using behaviour::ClosingCompany;

const char* const january = "2024/01/31";

std::string found_in(const ClosingCompany& company, const char* date) {
  const Reader reader(company.connection_string(), "MSACCESS");
  std::string names;
  for (const auto& entry : check_close(reader, *automation::parse_date(date)).entries)
    names += (names.empty() ? "" : " ") + std::string(entry.finding->name) + ":" +
             std::to_string(entry.found.count);
  return names;
}

// All its documents are approved, and it has a part in one line alone, which can be spoiled without another.
class CheckedCompany : public ClosingClient {
 protected:
  CheckedCompany() {
    sql({"UPDATE STKTRANHD SET STATUSSN=1",
         "INSERT INTO STKTRANDT(TRANNO,SN,PARTNO,QTY,UPRICE) VALUES('R1',9,'spare',1,1)",
         "INSERT INTO PARTS(PARTNO,PRICETYPESN,MTYPESN) VALUES('spare',1,1)"});
  }
  std::string found(const char* date = january) const { return found_in(company_, date); }
};

TEST_F(CheckedCompany, HasNoFindingByItself) {
  EXPECT_EQ(found(), "");
  EXPECT_EQ(run({"check", january}), exit_done);
  EXPECT_EQ(client_.out(), "");
  EXPECT_TRUE(says("Nothing is wrong with a close of 2024/01/31."));
}

TEST_F(CheckedCompany, IsNotClosedWithinAMonth) {
  EXPECT_EQ(found("2024/01/30"), "not-month-end:1");
}

TEST_F(CheckedCompany, IsNotClosedInTheFuture) {
  close_and_approve("2024/01/31");
  close_and_approve("2024/02/29");
  EXPECT_EQ(found("2024/03/31"), "in-future:1");
}

TEST_F(CheckedCompany, IsNotClosedTwiceNorBeforeAClose) {
  close_and_approve("2024/01/31");
  EXPECT_EQ(found("2024/01/31"), "before-a-close:1");
  EXPECT_EQ(found("2023/12/31"), "before-a-close:1");
}

TEST_F(CheckedCompany, IsClosedMonthByMonth) {
  EXPECT_EQ(found("2024/02/29"), "month-left-out:1");
  close_and_approve("2024/01/31");
  EXPECT_EQ(found("2024/02/29"), "");
  sql({"UPDATE STKCLOSEHD SET CLOSEDT='2023-11-30 00:00:00'",
       "UPDATE STKTRANHD SET TRANDT='2023-12-01 00:00:00' WHERE TRANTYPE IN('STK027CLOSE','STKCLOSEALL')"});
  EXPECT_EQ(found("2024/01/31"), "month-left-out:1");
}

TEST_F(CheckedCompany, HasTheCloseBeforeItApproved) {
  ASSERT_EQ(run({"close", "2024/01/31"}), exit_done) << client_.all();
  EXPECT_EQ(found("2024/02/29"), "previous-unapproved:1");
  sql({"UPDATE STKCLOSEHD SET STATUSSN=1"});
  EXPECT_EQ(found("2024/02/29"), "previous-unapproved:1") << "the documents are not";
}

TEST_F(CheckedCompany, HasNobodyElseAtWork) {
  const Reader reader(company_.connection_string(), "MSACCESS");
  make_own_tables(reader);
  sql(
      {"INSERT INTO TALLYRALOCK(LOCKKEY,WORKTEXT,OWNERID,HOSTNAME,PROCESSID,SINCE) "
       "VALUES('CLOSE','close 2024/01/31','ANNA','elsewhere',17,'2024/03/05 09:00:00')"});
  EXPECT_EQ(found(), "another-closer:1");
}

TEST_F(CheckedCompany, HasAMasterForEachDepartment) {
  sql(
      {"INSERT INTO STKTRANHD(TRANNO,TRANTYPE,TRANDT,DEPTNOFR,STATUSSN) "
       "VALUES('X1','STK010POREV','2024-01-05 00:00:00','77',1)"});
  EXPECT_EQ(found(), "unknown-departments:1");
  sql({"UPDATE STKTRANHD SET TRANTYPE='STK024MRPL',DEPTNOFR='',DEPTNOTO='77' WHERE TRANNO='X1'"});
  EXPECT_EQ(found(), "unknown-departments:1");
  sql({"UPDATE STKTRANHD SET TRANDT='2024-03-01 00:00:00' WHERE TRANNO='X1'"});
  EXPECT_EQ(found(), "") << "another month";
}

TEST_F(CheckedCompany, HasAMasterForEachPart) {
  sql({"INSERT INTO STKTRANDT(TRANNO,SN,PARTNO,QTY,UPRICE) VALUES('R1',8,'ghost',1,1)"});
  EXPECT_EQ(found(), "unknown-parts:1");
}

TEST_F(CheckedCompany, KnowsAQuantityOfEachPartInADepartment) {
  sql({"UPDATE STKTRANDT SET QTY=NULL WHERE PARTNO='spare'"});
  EXPECT_EQ(found(), "unknown-quantities:1");
}

TEST_F(CheckedCompany, KnowsThatPartsAreOrderedAsTheComponentOrdersThem) {
  sql({"ALTER TABLE STKTRANDT RENAME TO OLDLINES", "CREATE TABLE STKTRANDT AS SELECT * FROM OLDLINES WHERE 0",
       "DROP TABLE STKTRANDT",
       "CREATE TABLE STKTRANDT(TRANNO VARCHAR(20),REFERENCE VARCHAR(20),SN INTEGER,PARTNO VARCHAR(40) "
       "COLLATE NOCASE,"
       "QTY DOUBLE,UPRICE DOUBLE)",
       "INSERT INTO STKTRANDT SELECT TRANNO,REFERENCE,SN,PARTNO,QTY,UPRICE FROM OLDLINES WHERE "
       "PARTNO<>'BOLT-1'",
       "DROP TABLE OLDLINES"});
  EXPECT_EQ(found(), "part-order:1");
}

TEST_F(CheckedCompany, KnowsThatBlanksBehindADepartmentDoNotCount) {
  sql({"PRAGMA foreign_keys=OFF", "ALTER TABLE DEPARTS RENAME TO OLDDEPARTS",
       "CREATE TABLE DEPARTS(DEPTNO VARCHAR(20) PRIMARY KEY,DEPTNM VARCHAR(60))",
       "INSERT INTO DEPARTS SELECT DEPTNO,DEPTNM FROM OLDDEPARTS", "DROP TABLE OLDDEPARTS"});
  EXPECT_EQ(found(), "trailing-blanks:1");
}

TEST_F(CheckedCompany, TellsOfAnUnfinishedClose) {
  sql(
      {"INSERT INTO STKTRANHD(TRANNO,TRANTYPE,TRANDT,DEPTNOFR,STATUSSN) "
       "VALUES('027CLOSE00000009','STK027CLOSE','2024-02-01 00:00:00','10 ',0)"});
  EXPECT_EQ(found(), "unfinished-close:1");
}

TEST_F(CheckedCompany, TellsOfAClosingProcessThatHasEnded) {
  const Reader reader(company_.connection_string(), "MSACCESS");
  make_own_tables(reader);
  sql(
      {"INSERT INTO TALLYRALOCK(LOCKKEY,WORKTEXT,OWNERID,HOSTNAME,PROCESSID,PROCESSSTART,SINCE) "
       "VALUES('CLOSE','close 2024/01/31','ANNA','" +
       host_name() + "',999999999,'1','2024/03/05 09:00:00')"});
  EXPECT_EQ(found(), "unfinished-close:1");
}

TEST_F(CheckedCompany, TellsOfUnapprovedDocuments) {
  sql({"UPDATE STKTRANHD SET STATUSSN=0 WHERE TRANNO='I1'",
       "UPDATE STKTRANHD SET STATUSSN=NULL WHERE TRANNO='T1'"});
  EXPECT_EQ(found(), "unapproved-documents:2");
}

TEST_F(CheckedCompany, TellsOfStockBelowZero) {
  sql({"UPDATE STKTRANDT SET QTY=-20 WHERE TRANNO='I1'"});
  EXPECT_EQ(found(), "negative-stock:1");
}

TEST_F(CheckedCompany, TellsOfPartsWithoutACost) {
  sql({"UPDATE STKTRANDT SET UPRICE=NULL WHERE PARTNO='spare'",
       "UPDATE STKTRANDT SET UPRICE=0 WHERE PARTNO='frame'"});
  EXPECT_EQ(found(), "no-cost:2");
}

TEST_F(CheckedCompany, TellsOfPartsWithoutAMaterialType) {
  sql({"UPDATE PARTS SET MTYPESN=NULL WHERE PARTNO='spare'",
       "INSERT INTO PARTS(PARTNO) VALUES('nobody moves this')"});
  EXPECT_EQ(found(), "no-material-type:1");
}

TEST_F(CheckedCompany, TellsOfStocktakingsThatAreNotApproved) {
  sql({"INSERT INTO STKCHECKHD(CHECKNO,CHECKDT,DEPTNO,STATUSSN) VALUES('C1','2024-01-31 00:00:00','10',0)",
       "INSERT INTO STKCHECKHD(CHECKNO,CHECKDT,DEPTNO,STATUSSN) VALUES('C2','2024-01-31 00:00:00','10',1)",
       "INSERT INTO STKCHECKHD(CHECKNO,CHECKDT,DEPTNO,STATUSSN) VALUES('C3','2024-02-01 00:00:00','10',0)"});
  EXPECT_EQ(found(), "open-stocktakings:1");
}

TEST_F(CheckedCompany, ShowsErrorsFirstWithCountsAndRows) {
  sql({"UPDATE STKTRANHD SET STATUSSN=0 WHERE TRANNO='I1'"});
  EXPECT_EQ(run({"check", "2024/01/30"}), exit_failed);
  sql({"UPDATE STKTRANHD SET TRANDT='2024-01-30 00:00:00' WHERE TRANNO='I1'"});
  EXPECT_EQ(run({"check", "2024/01/30"}), exit_failed);
  EXPECT_EQ(client_.out(),
            "error not-month-end (1): the date is not the last day of a month\n"
            "    2024/01/30 is within its month\n"
            "    to do: close the last day of the month\n"
            "warning unapproved-documents (1): documents of the period are not approved; the close counts "
            "them all the "
            "same, costs do not\n"
            "    document I1, type STK020MISS, of 2024/01/30\n"
            "    to do: approve them, or delete what is not real\n");
  EXPECT_EQ(run({"check", "2024/01/30", "--csv"}), exit_failed);
  EXPECT_TRUE(says("severity,finding,count,text,advice\nerror,not-month-end,1,")) << client_.all();
  EXPECT_TRUE(says("\nfinding,what\nnot-month-end,2024/01/30 is within its month\n")) << client_.all();
  EXPECT_EQ(run({"check", "30.1.2024"}), exit_wrong_usage);
}

TEST(EmptyCompany, HasNoFinding) {
  const behaviour::CompanyDatabase company;
  const Reader reader(company.connection_string(), "MSACCESS");
  EXPECT_TRUE(check_close(reader, *automation::parse_date("2024/01/31")).entries.empty());
}

TEST(Findings, AreErrorsFirstAndHaveNamesOfTheirOwn) {
  std::map<std::string_view, int> names;
  bool warnings = false;
  for (const Finding* finding : findings()) {
    EXPECT_EQ(++names[finding->name], 1) << finding->name;
    warnings = warnings || finding->severity == Severity::warning;
    EXPECT_EQ(warnings, finding->severity == Severity::warning) << finding->name;
    EXPECT_FALSE(finding->advice.empty()) << finding->name;
  }
}

}  // namespace
}  // namespace tallyra::client
