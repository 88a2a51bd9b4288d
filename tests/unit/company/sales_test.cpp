#include "company/sales.h"

#include "tests/unit/company/generated_company.h"

namespace {

using namespace tallyra::tests::generated_company;

TEST_F(GeneratedCompany, SalesMovePartsOfTheirOrders) {
  expect_none({
      {"a movement for no sales order",
       "SELECT D.TRANNO FROM STKTRANDT D JOIN STKTRANHD H ON D.TRANNO=H.TRANNO WHERE TRANTYPE IN "
       "('STK030SHIP','STK020MISSSO','STK021RTNSO','STK022REVSO') AND NOT EXISTS(SELECT 1 FROM SODTBOM S "
       "JOIN SOHD O "
       "ON O.SONO=S.SONO WHERE S.SONO=D.REFERENCE AND S.PARTNO=D.PARTNO)"},
  });
}

TEST_F(GeneratedCompany, SalesHaveOrdersThatWaitForApproval) {
  EXPECT_EQ(value_of(database,
                     "SELECT GROUP_CONCAT(STATUSSN) FROM (SELECT DISTINCT STATUSSN FROM SOHD ORDER BY "
                     "STATUSSN)"),
            "0,1");
}

}  // namespace
