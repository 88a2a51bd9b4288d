#include "tests/behaviour/client/month_end/checked_company.h"

// Each finding on a company that has exactly that fault: it is found, and nothing else is.
namespace tallyra::client {
namespace {

TEST_F(CheckedCompany, IsNotClosedWithinAMonth) {
  EXPECT_EQ(found("2024/01/30"), "not-month-end:1");
}

TEST_F(CheckedCompany, IsNotClosedInTheFuture) {
  close_and_approve("2024/01/31");
  close_and_approve("2024/02/29");
  EXPECT_EQ(found("2024/03/31"), "in-future:1");
}

TEST_F(CheckedCompany, IsNotClosedTwiceNorBeforeAClose) {
  close_and_approve("2024/01/31");
  EXPECT_EQ(found("2024/01/31"), "before-a-close:1");
  EXPECT_EQ(found("2023/12/31"), "before-a-close:1");
}

TEST_F(CheckedCompany, IsClosedMonthByMonth) {
  EXPECT_EQ(found("2024/02/29"), "month-left-out:1");
  EXPECT_EQ(run({"check", "2024/02/29"}), exit_failed);
  EXPECT_TRUE(says("\n    no close of 2024/01\n    to do: close the months in their order")) << client_.all();
  EXPECT_EQ(found("2025/01/31"), "in-future:1 month-left-out:12");
  close_and_approve("2024/01/31");
  EXPECT_EQ(found("2024/02/29"), "");
  sql({"UPDATE STKCLOSEHD SET CLOSEDT='2023-11-30 00:00:00'",
       "UPDATE STKTRANHD SET TRANDT='2023-12-01 00:00:00' WHERE TRANTYPE IN('STK027CLOSE','STKCLOSEALL')"});
  EXPECT_EQ(found("2024/01/31"), "month-left-out:1");
}

TEST_F(CheckedCompany, HasTheCloseBeforeItApproved) {
  ASSERT_EQ(run({"close", "2024/01/31"}), exit_done) << client_.all();
  EXPECT_EQ(found("2024/02/29"), "previous-unapproved:1");
  sql({"UPDATE STKCLOSEHD SET STATUSSN=1"});
  EXPECT_EQ(found("2024/02/29"), "previous-unapproved:1") << "the documents are not";
}

}  // namespace
}  // namespace tallyra::client
