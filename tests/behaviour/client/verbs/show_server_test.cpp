#include "tests/behaviour/client/verbs/looking_on_a_server.h"

namespace tallyra::client {
namespace {

TEST_F(LookingOnAServer, ShowsDocumentsStocktakingsAndCloses) {
  on_both({"close", "2024/01/31"});
  expect_the_same({"show", "R1"});
  EXPECT_NE(server_.error().find("3 lines, quantity 21, value 43.5."), std::string::npos) << server_.error();
  expect_the_same({"show", "it's"}, exit_failed);
  on_both({"count", "import", file("part,counted\nframe,1\n"), "--department", "20", "--date", "2024/02/15",
           "--number", "CK"});
  expect_the_same({"show", "CK"});
  expect_the_same({"show", "2024/01/31"});
}

}  // namespace
}  // namespace tallyra::client
