#include "bench/place.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>

#include "tests/support/test_folder.h"

namespace tallyra::bench {
namespace {

namespace fs = std::filesystem;

const Place disk{"/disk", false, 1'000};
const Place narrow{"/narrow", true, 10};
const Place wide{"/wide", true, 100};

TEST(MemoryPlace, IsTheFirstInMemoryThatHasTheRoom) {
  ASSERT_TRUE(memory_place({disk, narrow, wide}, 50));
  EXPECT_EQ(memory_place({disk, narrow, wide}, 50)->folder, "/wide");
  EXPECT_EQ(memory_place({narrow, wide}, 10)->folder, "/narrow");
}

TEST(MemoryPlace, IsNoneWithoutRoomOrMemory) {
  EXPECT_FALSE(memory_place({disk, narrow}, 50));
  EXPECT_FALSE(memory_place({}, 0));
}

TEST(PlaceAt, TellsOfAFolderThatIsNotThereThatItHasNoRoom) {
  const Place none = place_at("/no/such/folder");
  EXPECT_FALSE(none.in_memory);
  EXPECT_EQ(none.free_bytes, 0U);
}

TEST(PlaceAt, KnowsTheRoomOfAFolderAndThatTheSystemsTablesAreNoMemoryForFiles) {
  const tests::TestFolder folder;
  EXPECT_GT(place_at(folder.path()).free_bytes, 0U);
  EXPECT_FALSE(place_at("/proc").in_memory);
}

TEST(WorkFolder, GoesWithEverythingInIt) {
  const tests::TestFolder parent;
  std::string path;
  {
    const WorkFolder folder(parent.file("made/too"));
    path = folder.path();
    fs::create_directories(path + "/deep/er");
    EXPECT_TRUE(fs::exists(path));
  }
  EXPECT_FALSE(fs::exists(path));
}

TEST(WorkFolder, RemovesWhatEndedProcessesHaveLeftAndNothingElse) {
  const tests::TestFolder parent;
  const pid_t child = fork();
  if (child == 0) _exit(0);
  waitpid(child, nullptr, 0);
  const std::string left_over = parent.file("tallyra-bench-" + std::to_string(child));
  const std::string living = parent.file("tallyra-bench-" + std::to_string(getppid()));
  const std::string other = parent.file("tallyra-bench-mine");
  for (const std::string& folder : {left_over, living, other}) fs::create_directory(folder);
  const WorkFolder folder(parent.path());
  EXPECT_FALSE(fs::exists(left_over));
  EXPECT_TRUE(fs::exists(living));
  EXPECT_TRUE(fs::exists(other));
}

}  // namespace
}  // namespace tallyra::bench
