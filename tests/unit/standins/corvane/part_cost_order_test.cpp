#include "tests/unit/standins/corvane/part_cost_fixture.h"

// Which receipt is the last one.
namespace tallyra::standins::corvane::testing {
namespace {

// To the moment: the number decides only between documents of one moment.
TEST_F(PartCost, TheLatestMomentDecidesBeforeTheNumber) {
  store({{"R9", "STK010POREV", "2024/03/10 08:00:00", 1, "P", "5", "2"},
         {"R1", "STK010POREV", "2024/03/10 16:00:00", 1, "P", "5", "3"}});
  EXPECT_EQ(last("P"), 3);
  store({{"R2", "STK010POREV", "2024/03/10 16:00:00", 1, "P", "5", "1"}});
  EXPECT_EQ(last("P"), 1);
}

// The literal of the close date is the midnight at which that day begins.
TEST_F(PartCost, AReceiptWithATimeOfDayOnTheCloseDateComesAfterTheClose) {
  store({{"R1", "STK010POREV", "2024/03/10", 1, "P", "5", "2"},
         {"R2", "STK010POREV", "2024/03/31 08:00:00", 1, "P", "5", "3"},
         {"M1", "STK022REVMO", "2024/03/10", 1, "Q", "5", "4"},
         {"M2", "STK022REVMO", "2024/03/31 08:00:00", 1, "Q", "5", "8"}});
  EXPECT_EQ(last("P"), 2);
  EXPECT_EQ(average("P"), 2);
  EXPECT_EQ(produced("Q"), 4);
}

TEST_F(PartCost, AReceiptThatIsTakenBackCanBeTheLatest) {
  store({{"R1", "STK010POREV", "2024/03/10", 1, "P", "5", "2"},
         {"R2", "STK010POREV", "2024/03/11", 1, "P", "-1", "3"}});
  EXPECT_EQ(last("P"), 3);
  EXPECT_EQ(average("P"), (5 * 2 - 1 * 3) / 4.0);
}

TEST_F(PartCost, TheLastProductionReceiptIsFoundAsTheLastPurchaseReceipt) {
  store({{"M9", "STK022REVMO", "2024/01/10 08:00:00", 1, "P", "5", "2"},
         {"M1", "STK022REVSO", "2024/01/10 16:00:00", 1, "P", "5", "3"}});
  EXPECT_EQ(produced("P"), 3) << "of both types the later one";
  database.run({line("M1", "P", "1", "9")});
  EXPECT_EQ(produced("P"), 9) << "of several lines the highest price";
  store({{"M2", "STK022REVMO", "2024/01/11", 1, "P", "-1", "7"}});
  EXPECT_EQ(produced("P"), 7) << "one that is taken back too";
}

}  // namespace
}  // namespace tallyra::standins::corvane::testing
