#include "tests/behaviour/client/month_end/closing_client.h"

namespace tallyra::client {
namespace {

TEST_F(ClosingClient, ReopensTheLatestCloseAlone) {
  close_and_approve("2024/01/31");
  close_and_approve("2024/02/29");
  const std::string before = company_.everything();
  EXPECT_EQ(run({"reopen", "2024/01/31"}), exit_failed);
  EXPECT_TRUE(says("there are later closes, up to that of 2024/02/29")) << client_.all();
  EXPECT_EQ(run({"reopen", "2024/03/31"}), exit_failed);
  EXPECT_EQ(company_.everything(), before);
  EXPECT_EQ(run({"reopen", "2024/02/29"}), exit_done) << client_.all();
  EXPECT_EQ(company_.rows("SELECT Count(*) FROM STKCLOSEHD"), "1\n");
  EXPECT_EQ(company_.department_lines("2024-03-01"), "");
  EXPECT_EQ(run({"reopen", "2024/01/31", "--force", "latest"}), exit_wrong_usage);
  EXPECT_TRUE(says("there is not-latest")) << client_.all();
}

TEST_F(ClosingClient, TellsWhatAReopenedCloseHadAndWhatItLacked) {
  ASSERT_EQ(run({"close", "2024/01/31"}), exit_done) << client_.all();
  const std::string documents =
      company_.rows("SELECT Count(*) FROM STKTRANHD WHERE TRANTYPE LIKE 'STK%CLOSE%'");
  const std::string count = documents.substr(0, documents.find('\n'));
  EXPECT_EQ(run({"reopen", "2024/01/31"}), exit_done) << client_.all();
  EXPECT_TRUE(says("Reopened 2024/01/31: its record and its " + count + " documents are deleted."))
      << client_.all();
  ASSERT_EQ(run({"close", "2024/01/31"}), exit_done) << client_.all();
  sql({"DELETE FROM STKCLOSEHD"});
  EXPECT_EQ(run({"reopen", "2024/01/31"}), exit_done) << client_.all();
  EXPECT_TRUE(says("Reopened 2024/01/31: " + count +
                   " documents that an unfinished close has left are deleted; it had no record."))
      << client_.all();
  EXPECT_EQ(run({"log", "--action", "reopen", "--csv"}), exit_done);
  EXPECT_TRUE(says("it had no record")) << client_.out();
}

}  // namespace
}  // namespace tallyra::client
