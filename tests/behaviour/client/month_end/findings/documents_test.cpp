#include "tests/behaviour/client/month_end/checked_company.h"

// Each finding on a company that has exactly that fault: it is found, and nothing else is.
namespace tallyra::client {
namespace {

TEST_F(CheckedCompany, KnowsAQuantityOfEachPartInADepartment) {
  sql({"UPDATE STKTRANDT SET QTY=NULL WHERE PARTNO='spare'"});
  EXPECT_EQ(found(), "unknown-quantities:1");
}

TEST_F(CheckedCompany, TellsOfUnapprovedDocuments) {
  sql({"UPDATE STKTRANHD SET STATUSSN=0 WHERE TRANNO='I1'",
       "UPDATE STKTRANHD SET STATUSSN=NULL WHERE TRANNO='T1'"});
  EXPECT_EQ(found(), "unapproved-documents:2");
}

TEST_F(CheckedCompany, TellsOfDocumentsWithoutADate) {
  sql({"INSERT INTO STKTRANHD(TRANNO,TRANTYPE,DEPTNOFR,STATUSSN) VALUES('N1','STK010POREV','10',1)"});
  EXPECT_EQ(found(), "undated-documents:1");
}

TEST_F(CheckedCompany, TellsOfStockBelowZero) {
  sql({"UPDATE STKTRANDT SET QTY=-20 WHERE TRANNO='I1'"});
  EXPECT_EQ(found(), "negative-stock:1");
}

TEST_F(CheckedCompany, TellsOfStocktakingsThatAreNotApproved) {
  sql({"INSERT INTO STKCHECKHD(CHECKNO,CHECKDT,DEPTNO,STATUSSN) VALUES('C1','2024-01-31 00:00:00','10',0)",
       "INSERT INTO STKCHECKHD(CHECKNO,CHECKDT,DEPTNO,STATUSSN) VALUES('C2','2024-01-31 00:00:00','10',1)",
       "INSERT INTO STKCHECKHD(CHECKNO,CHECKDT,DEPTNO,STATUSSN) VALUES('C3','2024-02-01 00:00:00','10',0)"});
  EXPECT_EQ(found(), "open-stocktakings:1");
}

}  // namespace
}  // namespace tallyra::client
