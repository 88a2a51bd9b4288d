#include "tests/behaviour/client/month_end/closing_client.h"

namespace tallyra::client {
namespace {

TEST_F(ClosingClient, ApprovesOnlyACloseThatExists) {
  ASSERT_EQ(run({"close", "2024/01/31"}), exit_done);
  EXPECT_EQ(run({"approve", "2024/03/31"}), exit_failed);
  EXPECT_TRUE(
      says("there is no close of 2024/03/31; the latest is that of 2024/01/31. Nothing was approved"));
  EXPECT_EQ(company_.rows("SELECT STATUSSN FROM STKCLOSEHD"), "0\n");
  EXPECT_EQ(run({"approve", "2024/01/31"}), exit_done) << client_.all();
  EXPECT_EQ(company_.rows("SELECT STATUSSN,STATUSBY FROM STKCLOSEHD"), "1|ADMIN\n");
  EXPECT_EQ(company_.rows("SELECT Count(*) FROM STKTRANHD WHERE STATUSSN=0 AND TRANTYPE LIKE '%CLOSE%'"),
            "0\n");
}

// A second one would put its user and time over those of the first, and a refused one look like success.
TEST_F(ClosingClient, ApprovesACloseOnce) {
  close_and_approve("2024/01/31");
  ClientProgram nobody({"--db", company_.connection_string(), "--user", "NOBODY", "--yes"});
  EXPECT_EQ(nobody.run({"approve", "2024/01/31"}), exit_failed);
  EXPECT_NE(nobody.all().find("is approved already. Nothing was changed"), std::string::npos) << nobody.all();
  EXPECT_EQ(run({"approve", "2024/01/31"}), exit_failed);
  EXPECT_EQ(company_.rows("SELECT STATUSSN,STATUSBY FROM STKCLOSEHD"), "1|ADMIN\n");
}

// Its documents count as well: without them the next close would not carry the stock over.
TEST_F(ClosingClient, ApprovesTheDocumentsThatAnApprovedRecordLacks) {
  close_and_approve("2024/01/31");
  sql({"UPDATE STKTRANHD SET STATUSSN=0 WHERE TRANTYPE='STK027CLOSE'"});
  EXPECT_EQ(run({"approve", "2024/01/31"}), exit_done) << client_.all();
  EXPECT_EQ(company_.rows("SELECT Count(*) FROM STKTRANHD WHERE STATUSSN=0 AND TRANTYPE LIKE '%CLOSE%'"),
            "0\n");
}

TEST_F(ClosingClient, AsksBeforeItApprovesEarlierClosesToo) {
  ASSERT_EQ(run({"close", "2024/01/31"}), exit_done);
  sql({"UPDATE STKTRANHD SET STATUSSN=1"});
  ASSERT_EQ(run({"close", "2024/02/29", "--force", "previous-unapproved"}), exit_done) << client_.all();
  client_.answer("n\n");
  EXPECT_EQ(client_.run({"approve", "2024/02/29"}), exit_failed);
  EXPECT_TRUE(says("approves the earlier closes of 2024/01/31 as well")) << client_.all();
  EXPECT_EQ(company_.rows("SELECT sum(STATUSSN) FROM STKCLOSEHD"), "0\n");
}

}  // namespace
}  // namespace tallyra::client
