#include "client/setup/examination/examination.h"

#include <fstream>

#include "tests/behaviour/client/setup/new_database.h"

namespace tallyra::client {
namespace {

TEST_F(NewDatabase, IsToldInOneLineWhenItIsNone) {
  if (!registered_.is_sqlite()) GTEST_SKIP() << "no file";
  std::ofstream(file_) << "this is a letter, no database";
  EXPECT_EQ(run({"doctor", "--user", "ANNA", "--csv"}), exit_failed);
  EXPECT_TRUE(says("\nBAD,database,DRIVER={SQLite3};Database=" + file_ + ": error")) << client_.out();
  EXPECT_TRUE(says("name the file of a database")) << client_.out();
  EXPECT_TRUE(says("1 bad, 0 doubtful.")) << client_.all();
}

TEST_F(NewDatabase, IsToldInOneLineWhenItIsEmpty) {
  if (registered_.is_sqlite()) std::ofstream(file_) << "";
  EXPECT_EQ(run({"doctor", "--user", "ANNA", "--csv"}), exit_failed);
  EXPECT_TRUE(says("\nBAD,tables,\"none is there, or none can be read\",\"'init' makes them"))
      << client_.out();
  EXPECT_TRUE(says("1 bad, ")) << client_.all();
}

}  // namespace
}  // namespace tallyra::client
