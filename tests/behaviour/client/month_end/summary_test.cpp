#include "tests/behaviour/client/month_end/closing_client.h"

namespace tallyra::client {
namespace {

TEST_F(ClosingClient, ValuesQuantitiesWithTheCostsOfTheCompanyDocument) {
  ASSERT_EQ(run({"close", "2024/01/31", "--json"}), exit_done) << client_.all();
  const std::string value = company_.rows(
      "SELECT sum(L.QTY*C.UPRICE) FROM STKTRANHD H JOIN STKTRANDT L ON L.TRANNO=H.TRANNO JOIN "
      "STKTRANDT C ON "
      "C.PARTNO=L.PARTNO JOIN STKTRANHD A ON A.TRANNO=C.TRANNO AND A.TRANTYPE='STKCLOSEALL' WHERE "
      "H.TRANTYPE='STK027CLOSE' AND H.DEPTNOFR='10'");
  EXPECT_TRUE(says("\"value\": " + value.substr(0, value.find_first_of(".\n")))) << value << client_.all();
}

}  // namespace
}  // namespace tallyra::client
