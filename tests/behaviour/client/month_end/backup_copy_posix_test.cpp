#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "client/month_end/backup_copy.h"
#include "client/refusal.h"
#include "tests/support/file_text.h"
#include "tests/support/test_folder.h"

namespace tallyra::client {
namespace {

TEST(BackupCopy, HasEveryByteAndReplacesNothing) {
  const tests::TestFolder folder;
  const std::string from = folder.file("stock.db");
  const std::string to = folder.file("copy.db");
  const std::string content = std::string(200000, 'x') + std::string("\0\r\n", 3);
  std::ofstream(from, std::ios::binary) << content;
  EXPECT_TRUE(copy_open_database(from, to));
  EXPECT_EQ(tests::file_text(to), content);
  std::ofstream(from, std::ios::binary) << "another";
  EXPECT_THROW(copy_open_database(from, to), Refusal);
  EXPECT_EQ(tests::file_text(to), content);
}

TEST(BackupCopy, OfAFileThatIsNotThereIsNone) {
  const tests::TestFolder folder;
  EXPECT_TRUE(copy_open_database(folder.file("none.db-wal"), folder.file("copy.db-wal")));
  EXPECT_FALSE(std::filesystem::exists(folder.file("copy.db-wal")));
}

}  // namespace
}  // namespace tallyra::client
