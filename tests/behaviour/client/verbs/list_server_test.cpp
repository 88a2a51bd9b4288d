#include <algorithm>

#include "tests/behaviour/client/verbs/looking_on_a_server.h"

namespace tallyra::client {
namespace {

class ListingOnAServer : public LookingOnAServer {
 protected:
  void SetUp() override {
    company_.add_a_record_of_each_class();
    LookingOnAServer::SetUp();
  }
};

TEST_F(ListingOnAServer, HasTheRecordsOfEveryClass) {
  for (const char* name : {"CTranHead", "CTranDetail", "CCheckHead", "CCheckDetail", "CStockClose",
                           "CPartCostSet", "CRevAddr", "CSTKController", "CStkShipNote"}) {
    expect_the_same({"list", name, "--limit", "0"});
    EXPECT_GT(std::ranges::count(server_.out(), '\n'), 1) << name << " has no rows";
  }
  expect_the_same({"list", "CTranHead", "--from", "2024/01/20", "--to", "2024/01/31", "--department", "20"});
  expect_the_same({"list", "CTranHead", "--type", "STK010POREV", "--status", "unapproved"});
  expect_the_same({"list", "CTranHead", "--type", "x' Or 'a'='a"});
  expect_the_same({"list", "CTranDetail", "--department", "10", "--limit", "3"});
  EXPECT_NE(server_.error().find("3 of "), std::string::npos) << server_.error();
  expect_the_same({"list", "CPartCostSet", "--type", "99999999999999999999"});
  expect_the_same({"list", "CStkShipNote", "--from", "2024/01/01"});
}

}  // namespace
}  // namespace tallyra::client
