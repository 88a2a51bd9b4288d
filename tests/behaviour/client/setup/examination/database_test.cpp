#include "client/database/reader.h"
#include "tests/behaviour/client/setup/new_database.h"

namespace tallyra::client {
namespace {

TEST_F(NewDatabase, SaysHowLongItWaitsForALock) {
  ASSERT_EQ(run({"init"}), exit_done);
  run({"doctor", "--csv"});
  if (!registered_.is_sqlite()) {
    EXPECT_TRUE(says("waiting for a lock,\"until it is free, as lock_timeout says")) << client_.out();
    db_ = registered_.connection_string();
    run({"doctor", "--csv"});
    EXPECT_TRUE(says("waiting for a lock,\"2s, as lock_timeout says")) << client_.out();
    return;
  }
  EXPECT_TRUE(says("waiting for a lock,\"100 seconds, as no Timeout stands")) << client_.out();
  db_ = "DRIVER={SQLite3};Timeout=2500;Database=" + file_;
  run({"doctor", "--csv"});
  EXPECT_TRUE(says("waiting for a lock,\"2500 milliseconds, as Timeout in the connection")) << client_.out();
}

TEST_F(NewDatabase, CannotBeWrittenToWhileAnotherOneWrites) {
  if (!registered_.is_sqlite()) GTEST_SKIP() << "there others write beside each other";
  db_ = "DRIVER={SQLite3};Timeout=50;Database=" + registered_.file().string();
  const Reader other(registered_.connection_string(), "MSACCESS");
  other.begin();
  other.execute("Update USERRIGHTS Set OWNER=OWNER");
  EXPECT_EQ(run({"doctor", "--user", "ADMIN", "--csv"}), exit_failed);
  EXPECT_TRUE(says("\nBAD,transactions and writing,")) << client_.all();
  other.roll_back();
}

}  // namespace
}  // namespace tallyra::client
