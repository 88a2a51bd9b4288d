#include "client/stocktaking/force.h"

#include "tests/behaviour/client/stocktaking/counting_client.h"

namespace tallyra::client {
namespace {

TEST_F(CountingClient, TellsTheJournalWhatWasForced) {
  enter();
  close_and_approve("2024/01/31");
  ASSERT_EQ(run({"count", "approve", "C1", "--force", "again,closed-period"}), exit_done) << client_.all();
  ASSERT_EQ(run({"count", "approve", "C1", "--force", "again,closed-period"}), exit_done) << client_.all();
  EXPECT_EQ(run({"count", "undo", "C1"}), exit_failed);
  ASSERT_EQ(run({"count", "undo", "C1", "--force", "closed-period"}), exit_done) << client_.all();
  ASSERT_EQ(run({"log", "--csv"}), exit_done);
  for (const char* entry :
       {",count approve,C1,done,forced: closed-period,",
        ",count approve,C1,done,forced: again closed-period,", ",count undo,C1,done,forced: closed-period,"})
    EXPECT_TRUE(says(entry)) << entry << client_.out();
}

TEST_F(CountingClient, ForcesNothingOfAnUnknownName) {
  enter();
  EXPECT_EQ(run({"count", "undo", "C1", "--force", "closed-perod"}), exit_wrong_usage);
  EXPECT_TRUE(
      says("--force 'closed-perod': there is nothing of that name to force here; there is closed-period; did "
           "you mean 'closed-period'?"))
      << client_.error();
}

}  // namespace
}  // namespace tallyra::client
