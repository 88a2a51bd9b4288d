#include "company/purchasing.h"

#include "tests/unit/company/generated_company.h"

namespace {

using namespace tallyra::tests::generated_company;

TEST_F(GeneratedCompany, PurchasingRefersToOrdersReturnsAndSuppliers) {
  expect_none({
      {"a purchase from no supplier",
       "SELECT TRANNO FROM STKTRANHD WHERE TRANTYPE IN ('STK010POREV','STK010PORTN','STK011PORTN') AND "
       "DEPTNOTO NOT IN "
       "(SELECT "
       "SUPPLIERS FROM SUPPLIERS)"},
      {"a receipt against neither order nor return",
       "SELECT D.TRANNO FROM STKTRANDT D JOIN STKTRANHD H ON D.TRANNO=H.TRANNO WHERE TRANTYPE='STK010POREV' "
       "AND NOT "
       "EXISTS(SELECT 1 FROM PODT P WHERE P.PONO=D.REFERENCE AND P.SN=D.SN AND P.PARTNO=D.PARTNO) AND NOT "
       "EXISTS(SELECT 1 FROM STKTRANDT R WHERE R.TRANNO=D.REFERENCE AND R.SN=D.SN AND R.PARTNO=D.PARTNO)"},
  });
}

TEST_F(GeneratedCompany, PurchasingReceivesWhatWasOrderedAndSendsBackWhatWasReceived) {
  expect_none({
      {"more received than ordered",
       "SELECT P.PONO FROM PODT P JOIN STKTRANDT D ON D.REFERENCE=P.PONO AND D.SN=P.SN JOIN STKTRANHD H ON "
       "D.TRANNO=H.TRANNO AND H.TRANTYPE='STK010POREV' GROUP BY P.PONO,P.SN HAVING "
       "SUM(D.QTY)>MAX(POQTY+DEDUCTQTY)"},
      {"a return of what was never received",
       "SELECT D.TRANNO FROM STKTRANDT D JOIN STKTRANHD H ON D.TRANNO=H.TRANNO WHERE TRANTYPE IN "
       "('STK010PORTN','STK011PORTN') AND NOT "
       "EXISTS(SELECT 1 FROM STKTRANHD H2 JOIN STKTRANDT D2 ON D2.TRANNO=H2.TRANNO WHERE "
       "H2.DEPTNOTO=H.DEPTNOTO AND "
       "H2.TRANTYPE='STK010POREV' AND D2.PARTNO=D.PARTNO)"},
      {"more sent back against an order line than was received for it",
       "SELECT D.TRANNO FROM STKTRANDT D JOIN STKTRANHD H ON D.TRANNO=H.TRANNO WHERE TRANTYPE='STK010PORTN' "
       "AND -D.QTY>IFNULL((SELECT SUM(D2.QTY) FROM STKTRANHD H2 JOIN STKTRANDT D2 ON D2.TRANNO=H2.TRANNO "
       "WHERE H2.TRANTYPE='STK010POREV' AND H2.TRANDT<=H.TRANDT AND D2.REFERENCE=D.REFERENCE AND D2.SN=D.SN "
       "AND D2.PARTNO=D.PARTNO),0)"},
  });
}

TEST_F(GeneratedCompany, PurchasingHasOrdersThatWaitForApproval) {
  EXPECT_EQ(value_of(database,
                     "SELECT GROUP_CONCAT(STATUSSN) FROM (SELECT DISTINCT STATUSSN FROM POHD ORDER BY "
                     "STATUSSN)"),
            "0,1");
}

}  // namespace
