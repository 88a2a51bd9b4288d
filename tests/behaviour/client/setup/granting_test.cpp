#include "client/setup/granting.h"

#include "tests/behaviour/client/setup/new_database.h"

namespace tallyra::client {
namespace {

TEST_F(NewDatabase, KeepsWhatIsGrantedForAllFunctionsBesideARowOfOne) {
  ASSERT_EQ(run({"init"}), exit_done);
  ASSERT_EQ(run({"grant", "ANNA", "*", "insert", "update"}), exit_done) << client_.all();
  ASSERT_EQ(run({"grant", "ANNA", "CStockClose", "approve"}), exit_done);
  EXPECT_TRUE(says("ANNA may now insert, update, approve under STK027CLOSE")) << client_.all();
  ASSERT_EQ(run({"revoke", "ANNA", "CRevAddr", "all"}), exit_done);
  ASSERT_EQ(run({"rights", "ANNA", "--csv"}), exit_done) << client_.all();
  EXPECT_TRUE(says("\nSTK027CLOSE,month closes,yes,yes,-,yes,-,-,-,-\n")) << client_.out();
  EXPECT_TRUE(says("\nSTK028ADDR,receiving addresses,-,-,-,-,-,-,-,-\n")) << client_.out();
  EXPECT_TRUE(says("\nSTK024MRPL,transfers,yes,yes,-,-,-,-,-,-\n")) << client_.out();
}

TEST_F(NewDatabase, LosesARowThatTakesNothingAway) {
  ASSERT_EQ(run({"init"}), exit_done);
  ASSERT_EQ(run({"grant", "ANNA", "*", "all"}), exit_done);
  ASSERT_EQ(run({"rights", "--csv"}), exit_done);
  EXPECT_TRUE(says("\nANNA,*,yes,yes,yes,yes,yes,yes,yes,yes\n")) << client_.out();
  ASSERT_EQ(run({"revoke", "ANNA", "*", "all"}), exit_done);
  EXPECT_TRUE(says("ANNA may now do nothing under *.")) << client_.all();
  ASSERT_EQ(run({"rights", "--csv"}), exit_done);
  EXPECT_FALSE(says("ANNA")) << client_.out();
  EXPECT_TRUE(says("Nobody may do anything")) << client_.error();
}

TEST_F(NewDatabase, TakesNothingAwayFromWhoIsNotThere) {
  ASSERT_EQ(run({"init"}), exit_done);
  ASSERT_EQ(run({"grant", "ANNA", "CStockClose", "approve"}), exit_done);
  EXPECT_EQ(run({"revoke", "ANA", "CStockClose", "approve"}), exit_failed) << client_.all();
  EXPECT_TRUE(
      says("there is no user 'ANA' in the table of rights; nothing was changed; did you mean 'ANNA'?"))
      << client_.all();
  EXPECT_EQ(run({"revoke", "ANNA", "CRevAddr", "all"}), exit_done) << "ANNA is there, and has no such right";
  ASSERT_EQ(run({"grant", "*", "*", "insert"}), exit_done);
  EXPECT_EQ(run({"revoke", "BERND", "CRevAddr", "insert"}), exit_done) << "he has what everybody has";
  ASSERT_EQ(run({"rights", "BERND", "--csv"}), exit_done);
  EXPECT_TRUE(says("\nSTK028ADDR,receiving addresses,-,-")) << client_.out();
}

}  // namespace
}  // namespace tallyra::client
