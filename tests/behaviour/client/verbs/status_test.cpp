#include "tests/behaviour/client/month_end/closing_client.h"

namespace tallyra::client {
namespace {

TEST_F(ClosingClient, ShowsTheStateOfEveryClose) {
  close_and_approve("2024/01/31");
  ASSERT_EQ(run({"close", "2024/02/29"}), exit_done) << client_.all();
  EXPECT_EQ(run({"status", "--csv"}), exit_done);
  EXPECT_TRUE(says("2024/01/31,approved,3,ADMIN,2024/03/05 09:30:00\n2024/02/29,not approved,3,ADMIN,"))
      << client_.all();
}

TEST_F(ClosingClient, HasAllItsTablesForAProgram) {
  EXPECT_EQ(run({"status", "--json"}), exit_done);
  EXPECT_EQ(client_.out(), "{\n  \"closes\": [],\n  \"unfinished\": [],\n  \"lock\": []\n}\n");
}

}  // namespace
}  // namespace tallyra::client
