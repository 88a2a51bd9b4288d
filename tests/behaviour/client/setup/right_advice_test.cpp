#include "client/setup/right_advice.h"

#include "tests/behaviour/client/setup/new_database.h"

namespace tallyra::client {
namespace {

TEST_F(NewDatabase, LetsDoWhatIsGrantedAndNoMore) {
  ASSERT_EQ(run({"init"}), exit_done);
  EXPECT_EQ(enters_an_address("ANNA"), exit_failed);
  EXPECT_TRUE(
      says("nobody has any right in this database yet; let ANNA do it by: tallyra-client grant ANNA CRevAddr "
           "insert --db "))
      << client_.all();
  ASSERT_EQ(run({"grant", "ANNA", "crevaddr", "insert", "Delete"}), exit_done) << client_.all();
  EXPECT_TRUE(says("ANNA may now insert, delete under STK028ADDR.")) << client_.all();
  EXPECT_EQ(enters_an_address("ANNA"), exit_done) << client_.all();
  ASSERT_EQ(run({"revoke", "ANNA", "STK028ADDR", "insert"}), exit_done);
  EXPECT_EQ(run({"CRevAddr", "Insert", "A2", "ADDRNO=A2", "--user", "ANNA"}), exit_failed);
  EXPECT_TRUE(says("tallyra-client: let ANNA do it by: tallyra-client grant ANNA CRevAddr insert"))
      << client_.all();
  EXPECT_EQ(run({"CTranHead", "Delete", "R1", "STK010POREV", "--user", "ANNA"}), exit_failed);
  EXPECT_TRUE(says("let ANNA do it by: tallyra-client grant ANNA STK010POREV delete")) << client_.all();
  EXPECT_EQ(run({"CTranHead", "Insert", "R1", "STK010POREV", "TRANNO=R1"}), exit_failed);
  EXPECT_TRUE(says("no user was named")) << client_.all();
  EXPECT_EQ(run({"CRevAddr", "Delete", "A1", "--user", "ANNA"}), exit_done) << client_.all();
}

}  // namespace
}  // namespace tallyra::client
