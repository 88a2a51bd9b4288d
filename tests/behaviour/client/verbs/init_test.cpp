#include <filesystem>
#include <fstream>

#include "tests/behaviour/client/setup/new_database.h"

namespace tallyra::client {
namespace {

TEST_F(NewDatabase, IsMadeOnceAndSaysWhomToGrantWhat) {
  ASSERT_EQ(run({"init", "--user", "ANNA"}), exit_done) << client_.all();
  EXPECT_TRUE(says("tallyra-client grant ANNA '*' all")) << client_.all();
  EXPECT_EQ(run({"init"}), exit_failed);
  EXPECT_TRUE(says("of the tables already")) << client_.all();
  EXPECT_EQ(run({"upgrade"}), exit_done);
  EXPECT_TRUE(says("nothing was missing")) << client_.all();
  EXPECT_EQ(run({"log", "--csv"}), exit_done);
  EXPECT_TRUE(says("init,,done,")) << client_.out();
}

TEST_F(NewDatabase, IsNotMadeOfAFileThatIsNone) {
  if (!registered_.is_sqlite()) GTEST_SKIP() << "no file";
  std::ofstream(file_) << "this is a letter, no database";
  for (const char* verb : {"init", "upgrade"}) {
    EXPECT_EQ(run({verb}), exit_failed);
    EXPECT_TRUE(says("tallyra-client: '" + file_ + "': error ")) << client_.all();
    EXPECT_TRUE(says("name one that is not there yet")) << client_.all();
  }
  EXPECT_EQ(std::filesystem::file_size(file_), 29U);
}

TEST_F(NewDatabase, IsMadeByNoOtherVerb) {
  if (!registered_.is_sqlite()) GTEST_SKIP() << "no file";
  EXPECT_EQ(run({"status"}), exit_wrong_usage);
  EXPECT_TRUE(says("'init' makes a new database")) << client_.all();
  EXPECT_FALSE(std::filesystem::exists(file_));
}

TEST_F(NewDatabase, IsNotMadeInAFolderThatIsNotThere) {
  db_ = folder_.file("nowhere/new.db");
  EXPECT_EQ(run({"init"}), exit_failed);
  EXPECT_TRUE(says("there is no folder")) << client_.all();
  EXPECT_EQ(run({"upgrade"}), exit_wrong_usage);
}

}  // namespace
}  // namespace tallyra::client
