#include "company/production.h"

#include "tests/unit/company/generated_company.h"

namespace {

using namespace tallyra::tests::generated_company;

TEST_F(GeneratedCompany, ProductionIssuesWhatItsOrdersRequireAndReceivesTheirGoods) {
  expect_none({
      {"an issue that no production order asks for",
       "SELECT D.TRANNO FROM STKTRANDT D JOIN STKTRANHD H ON D.TRANNO=H.TRANNO WHERE TRANTYPE IN "
       "('STK020MISS','STK021RTN1') AND NOT EXISTS(SELECT 1 FROM CODETAIL C WHERE C.CONO=D.REFERENCE AND "
       "C.PARTNO=D.PARTNO)"},
      {"more issued than required",
       "SELECT C.CONO FROM CODETAIL C JOIN STKTRANDT D ON D.REFERENCE=C.CONO AND D.PARTNO=C.PARTNO JOIN "
       "STKTRANHD H "
       "ON D.TRANNO=H.TRANNO AND H.TRANTYPE='STK020MISS' GROUP BY C.CONO,C.SN HAVING "
       "-SUM(D.QTY)>MAX(COQTY+TEMPLETQTY)"},
      {"goods of no production order",
       "SELECT D.TRANNO FROM STKTRANDT D JOIN STKTRANHD H ON D.TRANNO=H.TRANNO WHERE TRANTYPE='STK022REVMO' "
       "AND NOT "
       "EXISTS(SELECT 1 FROM COHD C WHERE C.CONO=D.REFERENCE AND C.PARTNO=D.PARTNO AND C.STATUSSN=1)"},
  });
}

TEST_F(GeneratedCompany, ProductionHasOrdersThatWaitForApproval) {
  EXPECT_EQ(value_of(database,
                     "SELECT GROUP_CONCAT(STATUSSN) FROM (SELECT DISTINCT STATUSSN FROM COHD ORDER BY "
                     "STATUSSN)"),
            "0,1");
}

}  // namespace
