#include "tests/behaviour/client/setup/new_database.h"

namespace tallyra::client {
namespace {

TEST_F(NewDatabase, IsNotWellWithoutATableAColumnOrARight) {
  registered_.run({"ALTER TABLE STKTRANDT DROP COLUMN VQTY", "DROP TABLE REVADDR"});
  db_ = registered_.connection_string();
  EXPECT_EQ(run({"doctor", "--user", "NOBODY", "--csv"}), exit_failed);
  EXPECT_TRUE(says("\nBAD,table REVADDR,missing")) << client_.out();
  EXPECT_TRUE(says("\nBAD,table STKTRANDT,lacks STKTRANDT.VQTY")) << client_.out();
  EXPECT_TRUE(says("\nBAD,rights of NOBODY,none,let NOBODY do everything: tallyra-client grant NOBODY "))
      << client_.out();
  ASSERT_EQ(run({"upgrade"}), exit_done) << client_.all();
  EXPECT_EQ(run({"doctor", "--user", "ADMIN", "--csv"}), exit_done) << client_.all();
}

}  // namespace
}  // namespace tallyra::client
