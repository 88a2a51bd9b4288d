#include "company/stocktaking.h"

#include <string>

#include "tests/unit/company/generated_company.h"

namespace {

using namespace tallyra::tests::generated_company;

TEST_F(GeneratedCompany, HasOneStocktakingThatWaitsForApproval) {
  EXPECT_EQ(value_of(database, "SELECT COUNT(*)||' '||CHECKDT||' '||DEPTNO||' '||STATUSSN FROM STKCHECKHD"),
            "1 2024-02-29 00:00:00 20 0");
  EXPECT_EQ(value_of(database, "SELECT COUNT(*) FROM STKCHECKDT WHERE QTY IS NULL"), "1");
  EXPECT_EQ(value_of(database, "SELECT COUNT(*) FROM STKCHECKDT WHERE UPRICE IS NULL"), "1");
  // Held against the movement up to the check date, as the approval does while nothing is closed.
  const std::string movement =
      "(SELECT QTY AS COUNTED,MAX(0,IFNULL((SELECT SUM(QTY) FROM STKTRANDT D JOIN STKTRANHD H ON "
      "D.TRANNO=H.TRANNO "
      "WHERE D.PARTNO=C.PARTNO AND DEPTNOFR='20' AND TRANDT<='2024-02-29 00:00:00'),0))+MAX(0,IFNULL((SELECT "
      "SUM(QTY) "
      "FROM STKTRANDT D JOIN STKTRANHD H ON D.TRANNO=H.TRANNO WHERE D.PARTNO=C.PARTNO AND DEPTNOTO='20' AND "
      "TRANTYPE='STK024MRPL' AND TRANDT<='2024-02-29 00:00:00'),0)) AS BOOK FROM STKCHECKDT C)";
  EXPECT_EQ(value_of(database, "SELECT MAX(ABS(COUNTED-BOOK))<=7 FROM " + movement), "1");
  EXPECT_EQ(value_of(database, "SELECT SUM(COUNTED=BOOK)>0 FROM " + movement), "1");
  EXPECT_EQ(value_of(database, "SELECT SUM(COUNTED<BOOK)>0 FROM " + movement), "1");
  EXPECT_EQ(value_of(database, "SELECT SUM(COUNTED>BOOK)>0 FROM " + movement), "1");
}

}  // namespace
