#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <fstream>

#include "client/database/reader.h"
#include "tests/behaviour/client/month_end/closing_client.h"
#include "tests/support/watched_calls.h"

namespace tallyra::client {
namespace {

// On a server there is no file to copy.
class BackedUpCompany : public ClosingClient {
 protected:
  void SetUp() override {
    if (!company_.is_sqlite()) GTEST_SKIP() << "no file";
  }
  // Closes with a copy; `at_comparison` runs before the copy is compared with the n-th table.
  ExitStatus close_with_a_copy(int n, const std::function<void()>& at_comparison) {
    int tables = 0;
    const behaviour::WatchedCalls watched([&](const std::string& call, const std::function<void()>& run_it) {
      if (call.find("As N From \"") != std::string::npos && ++tables == n) at_comparison();
      run_it();
    });
    return run({"close", "2024/01/31", "--backup"});
  }
  std::vector<std::string> copies() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(company_.file().parent_path()))
      if (const std::string name = entry.path().filename().string();
          name.find(".before-") != std::string::npos)
        names.push_back(name);
    return names;
  }
  std::string closes_and_locks() const {
    return company_.rows("SELECT (SELECT Count(*) FROM STKCLOSEHD),(SELECT Count(*) FROM TALLYRALOCK)");
  }

  std::string copy_ = company_.file().string() + ".before-close-20240305093000";
};

TEST_F(BackedUpCompany, IsCopiedBeforeAndTheCopyChecked) {
  ASSERT_EQ(run({"close", "2024/01/31", "--backup"}), exit_done) << client_.all();
  EXPECT_TRUE(says("Copied to " + copy_ + ": ")) << client_.all();
  EXPECT_TRUE(says(" rows, equal to the database.")) << client_.all();
  ASSERT_TRUE(std::filesystem::exists(copy_));
  EXPECT_EQ(copies(), std::vector{std::filesystem::path(copy_).filename().string()});
  const Reader reader("DRIVER={SQLite3};Database=" + copy_, "MSACCESS");
  EXPECT_EQ(reader.count("Select Count(*) As N From STKCLOSEHD"), 0);
  EXPECT_GT(reader.count("Select Count(*) As N From STKTRANDT"), 0);
  EXPECT_EQ(reader.count("Select Count(*) As N From TALLYRALOCK"), 0) << "restored, nobody is at work in it";
}

TEST_F(BackedUpCompany, KeepsACopyThatIsThereAlready) {
  std::ofstream(copy_) << "another";
  EXPECT_EQ(run({"close", "2024/01/31", "--backup"}), exit_failed);
  EXPECT_TRUE(says("is there already; nothing was done")) << client_.all();
  EXPECT_EQ(std::filesystem::file_size(copy_), 7U);
  EXPECT_EQ(closes_and_locks(), "0|0\n");
}

TEST_F(BackedUpCompany, IsLeftWithoutHalfACopyWhenThePersonInterrupts) {
  int signal_number = SIGINT;
  for (const int table : {1, 2, 7}) {
    EXPECT_EQ(close_with_a_copy(table, [&] { std::raise(signal_number); }), exit_interrupted)
        << client_.all();
    EXPECT_TRUE(says("interrupted while the database was copied: the copy is removed")) << client_.all();
    EXPECT_EQ(copies(), std::vector<std::string>());
    EXPECT_EQ(closes_and_locks(), "0|0\n");
    signal_number = SIGTERM;
  }
}

TEST_F(BackedUpCompany, KnowsACopyThatAKilledProcessHasNotFinished) {
  const pid_t child = fork();
  if (child == 0) {
    close_with_a_copy(3, [] { kill(getpid(), SIGKILL); });
    _exit(0);
  }
  int status = 0;
  waitpid(child, &status, 0);
  ASSERT_TRUE(WIFSIGNALED(status));
  ASSERT_FALSE(copies().empty());
  for (const std::string& name : copies()) EXPECT_NE(name.find(".unfinished"), std::string::npos) << name;
  EXPECT_EQ(run({"close", "2024/01/31", "--backup"}), exit_done) << client_.all();
  EXPECT_TRUE(says("files of a copy that was not finished.")) << client_.all();
  EXPECT_EQ(copies(), std::vector{std::filesystem::path(copy_).filename().string()});
}

}  // namespace
}  // namespace tallyra::client
