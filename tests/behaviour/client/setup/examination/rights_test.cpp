#include "client/setup/examination/examination.h"
#include "tests/behaviour/client/setup/new_database.h"

namespace tallyra::client {
namespace {

TEST_F(NewDatabase, IsOfUseOnlyToAUserWithSomeRight) {
  db_ = registered_.connection_string();
  EXPECT_EQ(run({"doctor", "--user", "ADMIN", "--csv"}), exit_done) << client_.all();
  EXPECT_TRUE(says("\ngood,rights of ADMIN,something under ")) << client_.out();
  EXPECT_EQ(run({"doctor", "--user", "NOBODY", "--csv"}), exit_failed);
  EXPECT_TRUE(says("\nBAD,rights of NOBODY,none,let NOBODY do everything: tallyra-client grant NOBODY "))
      << client_.out();
  EXPECT_EQ(run({"doctor", "--csv"}), exit_done) << client_.all();
  EXPECT_TRUE(says("\ndoubtful,rights,no user was named,name one with --user")) << client_.out();
  registered_.run({"DROP TABLE USERRIGHTS"});
  EXPECT_EQ(run({"doctor", "--user", "ADMIN", "--csv"}), exit_failed);
  EXPECT_TRUE(says("\nBAD,rights of ADMIN,\"error ") || says("\nBAD,rights of ADMIN,error "))
      << client_.out();
}

}  // namespace
}  // namespace tallyra::client
