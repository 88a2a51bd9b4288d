#include "client/text_file.h"

#include <gtest/gtest.h>

#include <fstream>

#include "client/file_path.h"
#include "tests/support/test_folder.h"
#include "tests/unit/client/usage_error_text.h"

namespace tallyra::client {
namespace {

TEST(TextFile, IsReadWholeAndByteByByte) {
  const tests::TestFolder folder;
  const std::string path = folder.file("tëxt.csv");
  const std::string content("a\r\n\0\xEF\xBB\xBF b", 9);
  std::ofstream(file_path(path), std::ios::binary) << content;
  EXPECT_EQ(text_of_file(path), content);
}

TEST(TextFile, IsNamedWhenItCannotBeRead) {
  const tests::TestFolder folder;
  const std::string missing = folder.file("missing.csv");
  EXPECT_EQ(usage_error_text([&] { text_of_file(missing); }), "'" + missing + "': no such file");
  EXPECT_EQ(usage_error_text([&] { require_readable(folder.path()); }),
            "'" + folder.path() + "' is a directory, no file");
}

TEST(TextFile, IsReplacedWhenAllOfItIsWritten) {
  const tests::TestFolder folder;
  const std::string path = folder.file("page.html");
  EXPECT_TRUE(replace_file(path, "first"));
  EXPECT_TRUE(replace_file(path, "second"));
  EXPECT_EQ(text_of_file(path), "second");
  // The folder in its way stands for a full disk.
  std::filesystem::create_directory(file_path(path + ".unfinished"));
  EXPECT_FALSE(replace_file(path, "third"));
  EXPECT_EQ(text_of_file(path), "second");
}

}  // namespace
}  // namespace tallyra::client
