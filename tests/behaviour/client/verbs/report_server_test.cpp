#include <algorithm>

#include "tests/behaviour/client/verbs/looking_on_a_server.h"

namespace tallyra::client {
namespace {

TEST_F(LookingOnAServer, VerifiesAndReports) {
  on_both({"close", "2024/01/31"});
  expect_the_same({"verify", "2024/01/31"});
  expect_the_same({"report", "2024/01/31"});
  on_both({"approve", "2024/01/31"});
  on_both({"close", "2024/02/29"});
  expect_the_same({"report", "2024/02/29"});
  on_both({"report", "2024/02/29", "--output", "-"});
  EXPECT_NE(server_.out().find("<svg"), std::string::npos);
  change("UPDATE STKTRANDT SET QTY=QTY+0.25 WHERE PARTNO='frame' AND TRANNO='027CLOSE00000006'");
  expect_the_same({"verify", "2024/02/29"}, exit_failed);
  EXPECT_NE(server_.out().find("\ndiffers,"), std::string::npos) << server_.out();
  change(
      "INSERT INTO STKTRANDT(TRANNO,SN,PARTNO,QTY,UPRICE,ADDDT) VALUES('R3',8,'bolt-1',2,1,'2099-03-06 "
      "10:00:00')");
  expect_the_same({"verify", "2024/02/29"}, exit_failed);
  EXPECT_NE(server_.out().find("\nentered after the close,"), std::string::npos) << server_.out();
  on_both({"log", "--from", "2024/03/01", "--action", "close", "--csv"});
  EXPECT_EQ(std::ranges::count(server_.out(), '\n'), 3) << server_.out();
}

}  // namespace
}  // namespace tallyra::client
