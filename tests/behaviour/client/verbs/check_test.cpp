#include "tests/behaviour/client/month_end/checked_company.h"

namespace tallyra::client {
namespace {

TEST_F(CheckedCompany, HasNoFindingByItself) {
  EXPECT_EQ(found(), "");
  EXPECT_EQ(run({"check", "2024/01/31"}), exit_done);
  EXPECT_EQ(client_.out(), "");
  EXPECT_TRUE(says("Nothing is wrong with a close of 2024/01/31."));
}

TEST_F(CheckedCompany, ShowsErrorsFirstWithCountsAndRows) {
  sql({"UPDATE STKTRANHD SET STATUSSN=0 WHERE TRANNO='I1'"});
  EXPECT_EQ(run({"check", "2024/01/30"}), exit_failed);
  sql({"UPDATE STKTRANHD SET TRANDT='2024-01-30 00:00:00' WHERE TRANNO='I1'"});
  EXPECT_EQ(run({"check", "2024/01/30"}), exit_failed);
  EXPECT_EQ(client_.out(),
            "error not-month-end (1): the date is not the last day of a month\n"
            "    2024/01/30 is within its month\n"
            "    to do: close the last day of the month\n"
            "warning unapproved-documents (1): documents of the period are not approved; the close counts "
            "them all the "
            "same, costs do not\n"
            "    document I1, type STK020MISS, of 2024/01/30\n"
            "    to do: approve them, or delete what is not real\n");
  EXPECT_EQ(run({"check", "2024/01/30", "--csv"}), exit_failed);
  EXPECT_TRUE(says("severity,finding,count,text,advice\nerror,not-month-end,1,")) << client_.all();
  EXPECT_TRUE(says("\nfinding,what\nnot-month-end,2024/01/30 is within its month\n")) << client_.all();
  EXPECT_EQ(run({"check", "30.1.2024"}), exit_wrong_usage);
}

TEST_F(CheckedCompany, TellsWhyTheLastDayOfAllCannotBeLookedAt) {
  for (const char* verb : {"check", "close", "reopen"}) {
    EXPECT_EQ(run({verb, "9999/12/31"}), exit_wrong_usage) << verb;
    EXPECT_TRUE(says("9999/12/31 is the last day that there is: no day follows it")) << client_.all();
  }
}

}  // namespace
}  // namespace tallyra::client
