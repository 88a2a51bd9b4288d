#include "tests/behaviour/client/report/reported_company.h"

namespace tallyra::client {
namespace {

TEST_F(Report, HasTheFiguresOfEachDepartmentAndMaterialType) {
  ASSERT_EQ(run({"report", "2024/02/29", "--csv"}), exit_done);
  // By hand: in the store 8 bolts at 3, 8 at 7, 2 at 9 and 7 screws at 0.5; in assembly four frames at the
  // average of 20, 20, 20 and 40. The ghost has neither type nor cost.
  EXPECT_TRUE(
      says("department,name,type,type name,quantity,value\n10,Store,,,1,0\n10,Store,1,Raw,25,101.5\n"))
      << client_.out();
  EXPECT_TRUE(says("\n20,Assembly,2,Made,4,100\n")) << client_.out();
  EXPECT_TRUE(says("\nframe,frame,1,60,100,40\n")) << client_.out();
}

}  // namespace
}  // namespace tallyra::client
