#include "tests/behaviour/client/setup/new_database.h"

namespace tallyra::client {
namespace {

TEST_F(NewDatabase, IsWellInTheEyesOfTheDoctor) {
  ASSERT_EQ(run({"init"}), exit_done);
  ASSERT_EQ(run({"grant", "ANNA", "*", "all"}), exit_done);
  EXPECT_EQ(run({"doctor", "--user", "ANNA", "--csv"}), exit_done) << client_.all();
  EXPECT_FALSE(says("\nBAD,")) << client_.out();
  for (const char* what :
       {"library Tallyra,\"10 classes", "place of the rights,table USERRIGHTS", "waiting for a lock",
        "transactions and writing", "clock", "lock and journal,this program has"})
    EXPECT_TRUE(says(what)) << what << "\n" << client_.out();
  EXPECT_TRUE(says(registered_.is_sqlite() ? "engine,SQLite " : "engine,PostgreSQL ")) << client_.out();
}

}  // namespace
}  // namespace tallyra::client
