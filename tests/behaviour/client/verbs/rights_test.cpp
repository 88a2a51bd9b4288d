#include "tests/behaviour/client/setup/new_database.h"

namespace tallyra::client {
namespace {

TEST_F(NewDatabase, ShowsWhatIsStoredAndWhatIsAnswered) {
  ASSERT_EQ(run({"init"}), exit_done) << client_.all();
  ASSERT_EQ(run({"rights", "--csv"}), exit_done) << client_.all();
  EXPECT_EQ(client_.out(), "user,function,insert,update,delete,approve,unapprove,cancel,finish,owner\n");
  EXPECT_TRUE(says("Nobody may do anything: 'grant USER * all'")) << client_.error();
  ASSERT_EQ(run({"grant", "ANNA", "CRevAddr", "delete"}), exit_done) << client_.all();
  ASSERT_EQ(run({"rights", "--csv"}), exit_done) << client_.all();
  EXPECT_TRUE(says("\nANNA,STK028ADDR,-,-,yes,-,-,-,-,-\n")) << client_.out();
  EXPECT_EQ(client_.error(), "");
  ASSERT_EQ(run({"rights", "ANNA", "--csv"}), exit_done) << client_.all();
  EXPECT_TRUE(says("\nSTK028ADDR,receiving addresses,-,-,yes,-,-,-,-,-\n")) << client_.out();
  ASSERT_EQ(run({"rights", "BERND", "--csv"}), exit_done) << client_.all();
  EXPECT_FALSE(says("yes")) << "a user without a row has no right: " << client_.out();
}

}  // namespace
}  // namespace tallyra::client
