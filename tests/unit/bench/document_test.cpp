#include "bench/document.h"

#include <gtest/gtest.h>

#include <fstream>

#include "tests/support/file_text.h"
#include "tests/support/test_folder.h"

namespace tallyra::bench {
namespace {

TEST(Document, TakesNewFiguresInPlaceOfTheOldOnes) {
  const std::string frame = std::string("before\n") + figures_begin;
  EXPECT_EQ(with_figures(frame + "\nold\nolder\n\n" + figures_end + "after\n", "new\n"),
            frame + "\nnew\n\n" + figures_end + "after\n");
}

TEST(Document, IsTheSameWhenTheSameIsWrittenTwice) {
  const std::string once = with_figures(std::string(figures_begin) + figures_end, "new\n");
  EXPECT_EQ(with_figures(once, "new\n"), once);
}

TEST(Document, WithoutMarksIsRefusedAndStays) {
  const tests::TestFolder folder;
  const std::string path = folder.file("README.md");
  const std::string content = std::string(figures_end) + figures_begin;
  std::ofstream(path) << content;
  EXPECT_THROW(write_figures(path, "new\n"), std::runtime_error);
  EXPECT_EQ(tests::file_text(path), content);
}

TEST(Document, IsWrittenAsAFile) {
  const tests::TestFolder folder;
  const std::string path = folder.file("README.md");
  std::ofstream(path) << figures_begin << figures_end << "after\n";
  write_figures(path, "new\n");
  EXPECT_EQ(tests::file_text(path), std::string(figures_begin) + "\nnew\n\n" + figures_end + "after\n");
  EXPECT_THROW(write_figures(folder.file("NONE.md"), "new\n"), std::runtime_error);
}

// The document that a run writes into has to have the lines for it.
TEST(Document, OfTheProjectHasTheMarks) {
  EXPECT_NO_THROW(with_figures(tests::file_text(PROJECT_README), "new\n"));
}

}  // namespace
}  // namespace tallyra::bench
