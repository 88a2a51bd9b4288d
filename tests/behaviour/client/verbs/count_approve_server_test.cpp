#include "tests/behaviour/client/verbs/looking_on_a_server.h"

namespace tallyra::client {
namespace {

// Part numbers in their order, which the server has by itself, and quantities that SQL sums up there.
TEST_F(LookingOnAServer, TakesStock) {
  expect_the_same({"count", "sheet", "10", "2024/01/31"});
  expect_the_same({"count", "sheet", "20", "2024/01/31", "--all"});
  EXPECT_EQ(server_.run({"count", "import", file("part,counted\nbolt-1,1,5\nnothing,1\n"), "--department",
                         "10", "--date", "2024/01/31", "--number", "CK"}),
            exit_failed);
  EXPECT_NE(server_.error().find("line 3: there is no part nothing"), std::string::npos) << server_.error();
  const std::string sheet = file("part,counted,price,notes\nbolt-1,10,2.5,Grün\nBolt1,3,,\nBOLT-1,2,,\n");
  on_both({"count", "import", sheet, "--department", "10", "--date", "2024/01/31", "--number", "CK"});
  expect_the_same({"list", "CCheckDetail"});
  expect_the_same({"count", "approve", "CK"});
  EXPECT_EQ(server_.out(), "part,book,counted,posted\nBOLT-1,2,2,\nBolt1,8,3,-5\nbolt-1,9,10,1\n");
  EXPECT_NE(server_.error().find("read back, it is stored, with 2 parts posted"), std::string::npos);
  expect_the_same({"count", "approve", "CK"}, exit_failed);
  expect_the_same({"count", "approve", "CK", "--force", "again"});
  on_both({"count", "undo", "CK"});
  expect_the_same({"list", "CTranHead", "--type", "STKCHECKISS"});
  on_both({"log", "--csv"});
  EXPECT_NE(server_.out().find(",count undo,CK,done,"), std::string::npos) << server_.out();
}

}  // namespace
}  // namespace tallyra::client
