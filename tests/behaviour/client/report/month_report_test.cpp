#include "client/report/month_report.h"

#include "tests/behaviour/client/report/reported_company.h"

namespace tallyra::client {
namespace {

TEST_F(Report, HasTheTotalsThatSqlHas) {
  const std::string html = page();
  EXPECT_NEAR(number_after(html, "id=\"total-quantity\""), sum("L.QTY", documents), 1e-9);
  EXPECT_NEAR(number_after(html, "id=\"total-value\""), sum("L.QTY*C.UPRICE", documents), 1e-9);
  EXPECT_GT(sum("L.QTY*C.UPRICE", documents), 0) << "a total of nothing would show nothing";
}

// What sums leave in the last digits is neither a change nor a stock.
TEST_F(Report, TakesRoundingForNothing) {
  const std::string of_company =
      " AND TRANNO IN (SELECT TRANNO FROM STKTRANHD WHERE TRANTYPE='STKCLOSEALL' AND "
      "TRANDT='2024-03-01 00:00:00')";
  sql({"UPDATE STKTRANDT SET QTY=2.000000000000001 WHERE PARTNO='BOLT-1'" + of_company,
       "UPDATE STKTRANDT SET QTY=0.1+0.2-0.3 WHERE PARTNO='ghost'" + of_company,
       "UPDATE STKTRANDT SET QTY=0.1+0.2 WHERE PARTNO='frame' AND TRANNO IN (SELECT TRANNO FROM STKTRANHD "
       "WHERE TRANTYPE='STK027CLOSE' AND TRANDT='2024-03-01 00:00:00')"});
  ASSERT_EQ(run({"report", "2024/02/29", "--json"}), exit_done) << client_.all();
  EXPECT_FALSE(says("BOLT-1")) << client_.out();
  EXPECT_TRUE(says("\"without_cost\": []")) << client_.out();
  EXPECT_TRUE(says("\"quantity\": 0.3,")) << client_.out();
  EXPECT_TRUE(says("\"value\": 7.5\n")) << client_.out();
}

}  // namespace
}  // namespace tallyra::client
