#include "tests/behaviour/client/month_end/checked_company.h"

// Each finding on a company that has exactly that fault: it is found, and nothing else is.
namespace tallyra::client {
namespace {

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

TEST_F(CheckedCompany, TellsOfPartsWithoutAMaterialType) {
  sql({"UPDATE PARTS SET MTYPESN=NULL WHERE PARTNO='spare'",
       "INSERT INTO PARTS(PARTNO) VALUES('nobody moves this')"});
  EXPECT_EQ(found(), "no-material-type:1");
}

}  // namespace
}  // namespace tallyra::client
