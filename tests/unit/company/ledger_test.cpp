#include "company/ledger.h"

#include "tests/unit/company/generated_company.h"

namespace {

using namespace tallyra::tests::generated_company;

TEST_F(GeneratedCompany, LedgerJoinsEveryLineToAHeaderAPartAndDepartments) {
  expect_none({
      {"a line without header",
       "SELECT TRANNO FROM STKTRANDT WHERE TRANNO NOT IN (SELECT TRANNO FROM STKTRANHD)"},
      {"a header without line",
       "SELECT TRANNO FROM STKTRANHD WHERE TRANNO NOT IN (SELECT TRANNO FROM STKTRANDT)"},
      {"a line of no part", "SELECT PARTNO FROM STKTRANDT WHERE PARTNO NOT IN (SELECT PARTNO FROM PARTS)"},
      {"a header of no department",
       "SELECT TRANNO FROM STKTRANHD WHERE DEPTNOFR IS NULL OR DEPTNOFR NOT IN (SELECT DEPTNO FROM DEPARTS)"},
      {"a transfer into no department",
       "SELECT TRANNO FROM STKTRANHD WHERE TRANTYPE='STK024MRPL' AND DEPTNOTO NOT IN (SELECT DEPTNO FROM "
       "DEPARTS)"},
      {"a transfer to itself", "SELECT TRANNO FROM STKTRANHD WHERE DEPTNOTO=DEPTNOFR"},
      {"a line number twice", "SELECT TRANNO FROM STKTRANDT GROUP BY TRANNO,REFERENCE,SN HAVING COUNT(*)>1"},
  });
}

TEST_F(GeneratedCompany, LedgerHasNotesOnShipmentsAlone) {
  expect_none({
      {"a note on no shipment",
       "SELECT TRANNO FROM STKSHIPNOTE WHERE TRANNO NOT IN (SELECT TRANNO FROM STKTRANHD WHERE "
       "TRANTYPE='STK030SHIP')"},
  });
}

TEST_F(GeneratedCompany, LedgerLeavesMostDocumentsApprovedAndSomeOpenOrCancelled) {
  EXPECT_EQ(value_of(database, "SELECT COUNT(DISTINCT STATUSSN) FROM STKTRANHD"), "3");
  EXPECT_EQ(value_of(database,
                     "SELECT COUNT(*)*10>(SELECT COUNT(*)*9 FROM STKTRANHD) FROM STKTRANHD WHERE STATUSSN=1"),
            "1");
}

}  // namespace
