#include <fstream>

#include "client/database/connection_text.h"
#include "client/text_file.h"
#include "tests/behaviour/client/month_end/closing_client.h"
#include "tests/support/test_folder.h"

// Where a report may go.
namespace tallyra::client {
namespace {

class ReportFile : public ClosingClient {
 protected:
  ReportFile() { close_and_approve("2024/01/31"); }

  bool is_refused(const std::string& file) {
    return run({"report", "2024/01/31", "--output", file}) == exit_failed &&
           says("'" + file + "' belongs to a database; nothing was written. Name another file");
  }
};

TEST_F(ReportFile, IsNeverTheDatabaseNorWhatLiesBesideIt) {
  const auto database = sqlite_file(company_.connection_string());
  if (!database) GTEST_SKIP() << "the database is no file";
  for (const char* beside : {"", "-wal", "-shm", "-journal", ".keys"})
    EXPECT_TRUE(is_refused(*database + beside)) << beside << client_.all();
  EXPECT_EQ(company_.rows("SELECT Count(*) FROM STKCLOSEHD"), "1\n");
}

TEST_F(ReportFile, IsNoOtherDatabaseEither) {
  const tests::TestFolder folder;
  const std::string other = folder.file("other.db");
  const std::string content("SQLite format 3\0and so on", 25);
  std::ofstream(other, std::ios::binary) << content;
  EXPECT_TRUE(is_refused(other)) << client_.all();
  EXPECT_EQ(text_of_file(other), content);
}

}  // namespace
}  // namespace tallyra::client
