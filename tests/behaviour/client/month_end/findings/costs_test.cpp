#include "tests/behaviour/client/month_end/checked_company.h"

// Each finding on a company that has exactly that fault: it is found, and nothing else is.
namespace tallyra::client {
namespace {

TEST_F(CheckedCompany, TellsOfPartsWithoutACost) {
  sql({"UPDATE STKTRANDT SET UPRICE=NULL WHERE PARTNO='spare'",
       "UPDATE STKTRANDT SET UPRICE=0 WHERE PARTNO='frame'"});
  EXPECT_EQ(found(), "no-cost:2");
}

}  // namespace
}  // namespace tallyra::client
