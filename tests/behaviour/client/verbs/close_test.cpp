#include "tests/behaviour/client/month_end/closing_client.h"

namespace tallyra::client {
namespace {

TEST_F(ClosingClient, ClosesAMonthAndShowsWhatItHasWritten) {
  EXPECT_EQ(run({"close", "2024/01/31"}), exit_done) << client_.all();
  EXPECT_EQ(client_.out().substr(0, client_.out().find('\n')),
            "department  name      document          lines  quantity  value");
  EXPECT_TRUE(says("\ncompany ")) << client_.all();
  EXPECT_TRUE(says("Closed 2024/01/31 in ")) << client_.all();
  EXPECT_EQ(company_.rows("SELECT CLOSEDT,STATUSSN,MAKEBY FROM STKCLOSEHD"), "2024/01/31|0|ADMIN\n");
  EXPECT_EQ(company_.rows("SELECT Count(*) FROM TALLYRALOCK"), "0\n");
  EXPECT_EQ(run({"log", "--csv"}), exit_done);
  EXPECT_TRUE(says("close,2024/01/31,done,,ADMIN,")) << client_.all();
}

TEST_F(ClosingClient, RefusesErrorsUnlessTheyAreForced) {
  EXPECT_EQ(run({"close", "2024/01/30"}), exit_failed);
  EXPECT_TRUE(says("2024/01/30 is not closed, because of: not-month-end.")) << client_.all();
  EXPECT_EQ(company_.rows("SELECT Count(*) FROM STKCLOSEHD"), "0\n");
  EXPECT_EQ(run({"close", "2024/01/30", "--force", "not-month-ent"}), exit_wrong_usage);
  EXPECT_TRUE(says("; there is not-month-end, in-future, ")) << client_.all();
  EXPECT_TRUE(says("did you mean 'not-month-end'?"));
  EXPECT_EQ(run({"close", "2024/01/30", "--force", "no-cost"}), exit_wrong_usage)
      << "a warning is not forced";
  EXPECT_EQ(run({"close", "2024/01/30", "--force", "not-month-end"}), exit_done) << client_.all();
  EXPECT_EQ(run({"log", "--csv"}), exit_done);
  EXPECT_TRUE(says("close,2024/01/30,done,forced: not-month-end,ADMIN,")) << client_.all();
}

// The class refuses it, and the record of the first close is none of the second.
TEST_F(ClosingClient, DoesNotTakeAnEarlierCloseForItsOwn) {
  close_and_approve("2024/01/31");
  const std::string before = company_.everything();
  EXPECT_EQ(run({"close", "2024/01/31", "--force", "before-a-close"}), exit_failed) << client_.all();
  EXPECT_TRUE(says("2024/01/31 is closed already, and no date is closed twice")) << client_.all();
  EXPECT_EQ(run({"close", "2024/01/31"}), exit_failed);
  EXPECT_TRUE(says("because of: before-a-close. No date is closed twice: 'reopen' it first"))
      << client_.all();
  EXPECT_EQ(company_.everything(), before);
}

TEST_F(ClosingClient, AsksAPersonAndRefusesWithoutOne) {
  EXPECT_EQ(client_.run({"close", "2024/01/31"}), exit_failed);
  EXPECT_TRUE(says("Nobody is there to answer")) << client_.all();
  client_.answer("n\n");
  EXPECT_EQ(client_.run({"close", "2024/01/31"}), exit_failed);
  EXPECT_TRUE(says("Close 2024/01/31? 2 departments and the company come to 13 lines. [y/N]"))
      << client_.all();
  EXPECT_EQ(company_.rows("SELECT Count(*) FROM STKCLOSEHD"), "0\n");
  client_.answer("y\nyes\n");
  EXPECT_EQ(client_.run({"close", "2024/01/31"}), exit_done) << client_.all();
}

TEST_F(ClosingClient, TellsWhyTheClassRefuses) {
  ClientProgram nobody({"--db", company_.connection_string(), "--user", "NOBODY", "--yes"});
  EXPECT_EQ(nobody.run({"close", "2024/01/31"}), exit_failed);
  EXPECT_NE(nobody.error().find("2024/01/31 is not closed: error 10000016"), std::string::npos)
      << nobody.all();
  EXPECT_NE(nobody.error().find("let NOBODY do it by: tallyra-client grant NOBODY CStockClose insert"),
            std::string::npos)
      << nobody.all();
  EXPECT_NE(nobody.error().find("nothing of it is left in the database"), std::string::npos) << nobody.all();
}

}  // namespace
}  // namespace tallyra::client
