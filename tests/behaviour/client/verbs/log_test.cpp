#include "tests/behaviour/client/month_end/closing_client.h"

namespace tallyra::client {
namespace {

TEST_F(ClosingClient, ShowsTheJournalLatestFirst) {
  ASSERT_EQ(run({"log", "--csv"}), exit_done) << client_.all();
  EXPECT_EQ(client_.out(), "when,what,of,result,detail,user,login,host,process\n");
  EXPECT_TRUE(says("The database has no journal yet: the first close makes one.")) << client_.error();
  close_and_approve("2024/01/31");
  ASSERT_EQ(run({"log", "--csv"}), exit_done) << client_.all();
  const auto close = client_.out().find("\n2024/03/05 09:30:00,close,2024/01/31,done,,ADMIN,");
  const auto approve = client_.out().find("\n2024/03/05 09:30:00,approve,2024/01/31,done,,ADMIN,");
  ASSERT_NE(close, std::string::npos) << client_.out();
  EXPECT_LT(approve, close) << client_.out();
}

TEST_F(ClosingClient, ShowsOfTheJournalWhatTheOptionsLeave) {
  close_and_approve("2024/01/31");
  ASSERT_EQ(run({"log", "--csv", "--action", "approve"}), exit_done);
  EXPECT_TRUE(says(",approve,")) << client_.out();
  EXPECT_FALSE(says(",close,")) << client_.out();
  ASSERT_EQ(run({"log", "--csv", "--from", "2024/03/05", "--to", "2024/03/05"}), exit_done);
  EXPECT_TRUE(says(",close,")) << "the whole of the last day counts: " << client_.out();
  for (const char* option : {"--from", "--to"}) {
    const char* day = option == std::string_view("--from") ? "2024/03/06" : "2024/03/04";
    ASSERT_EQ(run({"log", "--csv", option, day}), exit_done);
    EXPECT_FALSE(says(",close,")) << option << client_.out();
  }
  ASSERT_EQ(run({"log", "--csv", "--limit", "1"}), exit_done);
  EXPECT_TRUE(says("1 earlier entries are not shown: --limit 0 shows all.")) << client_.error();
  EXPECT_FALSE(says(",close,")) << client_.out();
}

}  // namespace
}  // namespace tallyra::client
