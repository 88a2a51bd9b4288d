#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "bench/document.h"
#include "tests/support/file_text.h"
#include "tests/support/test_folder.h"

namespace tallyra::bench {
namespace {

namespace fs = std::filesystem;

// Runs the program, with nothing that it could measure.
class BenchProgramTest : public ::testing::Test {
 protected:
  int run(const std::string& arguments) {
    const std::string command = std::string(TALLYRA_BENCH) + " --schema " + TALLYRA_SCHEMA +
                                " --only nothing " + arguments + " >" + output_ + " 2>&1";
    const int status = std::system(command.c_str());
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }

  tests::TestFolder folder_;
  std::string output_ = folder_.file("output");
};

TEST_F(BenchProgramTest, TidiesUpTheFolderThatItWasGiven) {
  EXPECT_EQ(run("--folder " + folder_.file("work")), 0) << tests::file_text(output_);
  EXPECT_NE(tests::file_text(output_).find("work"), std::string::npos);
  EXPECT_TRUE(fs::is_empty(folder_.file("work")));
}

TEST_F(BenchProgramTest, TellsOfAFolderOnADiskThatNothingIsJudged) {
  // The system's own tables are no memory file system, but nothing can be made there either.
  EXPECT_EQ(run("--folder /proc"), 1);
  EXPECT_NE(tests::file_text(output_).find("On a disk, in /proc: nothing is judged."), std::string::npos)
      << tests::file_text(output_);
}

TEST_F(BenchProgramTest, WritesOnlyFiguresOfAWholeRun) {
  const std::string document = folder_.file("README.md");
  const std::string content = std::string(figures_begin) + figures_end;
  std::ofstream(document) << content;
  for (const char* part : {"", "--quick", "--processor-time"})
    EXPECT_EQ(run(std::string(part) + " --write-readme " + document), 2) << part;
  EXPECT_EQ(tests::file_text(document), content);
}

}  // namespace
}  // namespace tallyra::bench
