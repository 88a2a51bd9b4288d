#include "tests/behaviour/client/stocktaking/counting_client.h"

namespace tallyra::client {
namespace {

TEST_F(CountingClient, PrintsASheetWithTheBookOfTheDepartment) {
  ASSERT_EQ(run({"count", "sheet", "10", "2024/01/31", "--csv"}), exit_done) << client_.all();
  EXPECT_EQ(client_.out(),
            "department,date,part,name,unit,book,counted,price,notes\n"
            "10,2024/01/31,BOLT-1,BOLT-1,,2,,,\n"
            "10,2024/01/31,Bolt1,Bolt1,,8,,,\n"
            "10,2024/01/31,bolt-1,bolt-1,,9,,,\n"
            "10,2024/01/31,螺丝,螺丝,,7,,,\n");
  ASSERT_EQ(run({"count", "sheet", "10", "2024/01/31", "--csv", "--blind", "--all"}), exit_done);
  EXPECT_EQ(client_.out().find("book"), std::string::npos);
  EXPECT_NE(client_.out().find("frame"), std::string::npos);
  EXPECT_EQ(run({"count", "sheet", "99", "2024/01/31"}), exit_failed);
  EXPECT_TRUE(says("no department 99"));
}

}  // namespace
}  // namespace tallyra::client
