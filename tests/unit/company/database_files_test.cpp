#include "company/database_files.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "company/options.h"
#include "tests/support/file_text.h"
#include "tests/support/test_folder.h"

namespace {

using tallyra::company::GrowingFile;
using tallyra::company::Refusal;
using tallyra::tests::file_text;
using tallyra::tests::TestFolder;

void write(const std::string& path, const std::string& content) {
  std::ofstream(path) << content;
}

class DatabaseFiles : public testing::Test {
 protected:
  TestFolder folder_;
  const std::string database_ = folder_.file("company.db");
};

TEST_F(DatabaseFiles, AFileTakesItsPlaceOnlyWhenItIsDone) {
  {
    const GrowingFile left(database_, false);
    write(left.path(), "half");
    write(left.path() + "-wal", "half");
    EXPECT_FALSE(std::filesystem::exists(database_));
  }
  EXPECT_TRUE(std::filesystem::is_empty(std::filesystem::path(database_).parent_path()));
  GrowingFile done(database_, false);
  write(done.path(), "whole");
  done.put_in_place();
  EXPECT_EQ(file_text(database_), "whole");
}

TEST_F(DatabaseFiles, WhatIsReplacedGoesWithTheFilesBesideIt) {
  write(database_, "old");
  write(database_ + ".keys", "numbers of the old one");
  GrowingFile fresh(database_, true);
  write(fresh.path(), "new");
  EXPECT_EQ(file_text(database_), "old");
  fresh.put_in_place();
  EXPECT_EQ(file_text(database_), "new");
  EXPECT_FALSE(std::filesystem::exists(database_ + ".keys"));
}

TEST_F(DatabaseFiles, NothingIsReplacedUnasked) {
  write(database_ + ".keys", "numbers");
  EXPECT_THROW(GrowingFile(database_, false), Refusal);
  EXPECT_EQ(file_text(database_ + ".keys"), "numbers");
}

TEST_F(DatabaseFiles, APlaceThatIsNoneIsRefused) {
  EXPECT_THROW(GrowingFile("", true), Refusal);
  EXPECT_THROW(GrowingFile(folder_.file("none/company.db"), true), Refusal);
  std::filesystem::create_directory(database_);
  EXPECT_THROW(GrowingFile(database_, true), Refusal);
}

}  // namespace
