#include "tests/behaviour/client/report/reported_company.h"
#include "tests/support/file_text.h"
#include "tests/support/test_folder.h"

namespace tallyra::client {
namespace {

TEST_F(Report, IsWrittenToAFileAndReplacesNoneUnasked) {
  const tests::TestFolder folder;
  const std::string file = folder.file("of february.html");
  ASSERT_EQ(client_.run({"report", "2024/02/29", "--output", file}), exit_done) << client_.all();
  EXPECT_EQ(tests::file_text(file), page());
  EXPECT_EQ(client_.run({"report", "2024/02/29", "--output", file}), exit_failed);
  EXPECT_TRUE(says("is there already")) << client_.all();
  EXPECT_EQ(run({"report", "2024/02/29", "--output", file}), exit_done) << "--yes replaces it";
  EXPECT_EQ(run({"report", "2024/02/29", "--output", folder.path()}), exit_failed);
  EXPECT_EQ(run({"report", "2024/03/31"}), exit_failed);
  EXPECT_TRUE(says("there is no close of 2024/03/31")) << client_.all();
}

TEST_F(Report, PutsTablesWhereItIsTold) {
  const tests::TestFolder folder;
  ASSERT_EQ(run({"report", "2024/02/29", "--csv"}), exit_done) << client_.all();
  const std::string printed = client_.out();
  const std::string file = folder.file("february.csv");
  ASSERT_EQ(run({"report", "2024/02/29", "--csv", "--output", file}), exit_done) << client_.all();
  EXPECT_EQ(client_.out(), "");
  EXPECT_EQ(tests::file_text(file), printed);
}

}  // namespace
}  // namespace tallyra::client
