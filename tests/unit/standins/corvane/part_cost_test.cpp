#include <gtest/gtest.h>

#include "automation/convert.h"
#include "automation/error.h"
#include "tests/support/answering_database.h"
#include "tests/unit/standins/corvane/part_cost_fixture.h"

namespace tallyra::standins::corvane::testing {
namespace {

using automation::Object;
using automation::ref;
using automation::Value;
using stage::AnsweringDatabase;
using stage::Reply;

TEST_F(PartCost, APartThatWasNeverReceivedCostsNothing) {
  EXPECT_EQ(last("P"), 0);
  EXPECT_EQ(average("P"), 0);
  EXPECT_EQ(produced("P"), 0);
}

TEST_F(PartCost, TheLastPriceIsThatOfTheLatestApprovedPurchaseReceiptUpToTheClose) {
  store({{"R1", "STK010POREV", "2024/01/10", 1, "P", "5", "1.5"},
         {"R3", "STK010POREV", "2024/03/31", 1, "P", "5", "2.5"},
         {"R2", "STK010POREV", "2024/03/31", 1, "P", "5", "7.5"},
         {"R4", "STK010POREV", "2024/04/01", 1, "P", "5", "9"},
         {"R5", "STK010POREV", "2024/03/31", 0, "P", "5", "9"},
         {"R6", "STK022REVMO", "2024/03/31", 1, "P", "5", "9"},
         {"R7", "STK010POREV", "2024/03/31", 1, "Q", "5", "9"}});
  EXPECT_EQ(last("P"), 2.5);
  EXPECT_EQ(purchase("GetLastUprice", "P", "#"), 2.5);
}

TEST_F(PartCost, OfSeveralPricesInTheLastReceiptTheHighestCountsAndOneWithoutAPriceDoesNot) {
  store({{"R1", "STK010POREV", "2024/03/01", 1, "P", "5", "2"},
         {"R2", "STK010POREV", "2024/03/02", 1, "P", "5", "Null"}});
  EXPECT_EQ(last("P"), 2);
  database.run({line("R1", "P", "1", "3"), line("R1", "P", "1", "1")});
  EXPECT_EQ(last("P"), 3);
}

TEST_F(PartCost, TheAverageWeighsTheReceiptsOfThePeriodByQuantity) {
  store({{"R1", "STK010POREV", "2024/02/29", 1, "P", "100", "9"},
         {"R2", "STK010POREV", "2024/03/01", 1, "P", "10", "2"},
         {"R3", "STK010POREV", "2024/03/31", 1, "P", "30", "4"},
         {"R4", "STK010POREV", "2024/03/10", 1, "P", "7", "Null"},
         {"R5", "STK010POREV", "2024/03/10", 0, "P", "7", "100"},
         {"R6", "STK020MISS", "2024/03/10", 1, "P", "-7", "100"}});
  EXPECT_EQ(average("P"), 3.5);
  EXPECT_EQ(purchase("GetAvgUprice", "P", "#"), 3.5);
}

TEST_F(PartCost, WithoutReceiptsInThePeriodTheAverageIsTheLastKnownPrice) {
  store({{"R1", "STK010POREV", "2024/01/10", 1, "P", "5", "1.5"},
         {"R2", "STK010POREV", "2024/02/29", 1, "P", "5", "2.5"}});
  EXPECT_EQ(average("P"), 2.5);
}

TEST_F(PartCost, ReceiptsThatCancelEachOtherHaveNoAverage) {
  store({{"R1", "STK010POREV", "2024/03/10", 1, "P", "5", "2"},
         {"R2", "STK010POREV", "2024/03/11", 1, "P", "-5", "3"}});
  EXPECT_EQ(average("P"), 3);
  store({{"R3", "STK010POREV", "2024/03/12", 1, "P", "1", "1"}});  // 1 left, of value -4
  EXPECT_EQ(average("P"), 1);
}

TEST_F(PartCost, AProducedPartAveragesWhatWasCarriedOverWithTheProductionOfThePeriod) {
  store({{"C1", "STKCLOSEALL", "2024/03/01", 1, "P", "10", "2"},
         {"M1", "STK022REVMO", "2024/03/05", 1, "P", "5", "4"},
         {"M2", "STK022REVSO", "2024/03/31", 1, "P", "5", "6"},
         {"M3", "STK022REVMO", "2024/03/05", 0, "P", "50", "100"},
         {"M4", "STK022REVMO", "2024/02/29", 1, "P", "50", "100"},
         {"M5", "STK022REVMO", "2024/04/01", 1, "P", "50", "100"},
         {"M6", "STK010POREV", "2024/03/05", 1, "P", "50", "100"},
         {"M7", "STK022REVMO", "2024/03/05", 1, "P", "50", "Null"}});
  EXPECT_EQ(produced("P"), (10 * 2 + 5 * 4 + 5 * 6) / 20.0);
  EXPECT_EQ(produced("P", "#2024/02/29#", "#2024/03/31#"), 3.5);
}

TEST_F(PartCost, TheCarriedCostMovesFromCloseToClose) {
  store({{"M1", "STK022REVMO", "2024/01/15", 1, "P", "10", "3"}});
  EXPECT_EQ(produced("P", "'2000/01/01'", "'2024/01/31'"), 3);
  store({{"C1", "STKCLOSEALL", "2024/02/01", 1, "P", "8", "3"},
         {"M2", "STK022REVMO", "2024/02/20", 1, "P", "8", "5"}});
  EXPECT_EQ(produced("P", "'2024/01/31'", "'2024/02/29'"), 4);
  store({{"C2", "STKCLOSEALL", "2024/03/01", 1, "P", "6", "4"}});
  EXPECT_EQ(produced("P"), 4);
}

TEST_F(PartCost, OnlyTheLatestCompanyDocumentOfThePeriodIsCarriedOver) {
  store({{"C1", "STKCLOSEALL", "2024/03/01", 1, "P", "10", "2"},
         {"C3", "STKCLOSEALL", "2024/03/02", 1, "P", "10", "6"},
         {"C2", "STKCLOSEALL", "2024/03/02", 1, "P", "10", "4"},
         {"C4", "STKCLOSEALL", "2024/04/01", 0, "P", "10", "9"}});
  EXPECT_EQ(produced("P"), 6);
}

TEST_F(PartCost, MissingStockHasNoValueToAverageWith) {
  store({{"C1", "STKCLOSEALL", "2024/03/01", 1, "P", "-4", "20"},
         {"M1", "STK022REVMO", "2024/03/05", 1, "P", "5", "12"}});
  EXPECT_EQ(produced("P"), 12);
}

TEST_F(PartCost, WithoutStockTheCarriedCostStays) {
  store({{"C1", "STKCLOSEALL", "2024/03/01", 1, "P", "0", "7"},
         {"M0", "STK022REVMO", "2024/01/05", 1, "P", "5", "12"}});
  EXPECT_EQ(produced("P"), 7);
}

TEST_F(PartCost, WithoutACarriedCostTheLastProductionPriceCounts) {
  store({{"M1", "STK022REVMO", "2024/01/05", 1, "P", "5", "12"},
         {"M2", "STK022REVSO", "2024/01/06", 1, "P", "5", "13"},
         {"R1", "STK010POREV", "2024/01/07", 1, "P", "5", "99"}});
  EXPECT_EQ(produced("P"), 13);
  store({{"C1", "STKCLOSEALL", "2024/03/01", 1, "P", "-1", "0"}});
  EXPECT_EQ(produced("P"), 13);
}

TEST_F(PartCost, ProductionThatIsTakenBackEndsInTheCarriedCost) {
  store({{"C1", "STKCLOSEALL", "2024/03/01", 1, "P", "2", "3"},
         {"M1", "STK022REVMO", "2024/03/05", 1, "P", "-2", "3"}});
  EXPECT_EQ(produced("P"), 3);
  store({{"M2", "STK022REVMO", "2024/03/06", 1, "P", "1", "1"},
         {"M3", "STK022REVMO", "2024/03/07", 1, "P", "-0.5", "9"}});
  EXPECT_EQ(produced("P"), 3);
}

TEST_F(PartCost, AnUnknownQuantityCountsAsNone) {
  store({{"M1", "STK022REVMO", "2024/03/05", 1, "P", "Null", "100"},
         {"M2", "STK022REVMO", "2024/03/05", 1, "P", "5", "2"}});
  EXPECT_EQ(produced("P"), 2);
}

TEST_F(PartCost, PartNumbersAreComparedExactlyAndMayHoldQuotes) {
  store({{"R1", "STK010POREV", "2024/03/05", 1, "P''1", "5", "2"},
         {"R2", "STK010POREV", "2024/03/06", 1, "p''1", "5", "3"},
         {"R3", "STK010POREV", "2024/03/06", 1, "Größe 零件", "5", "4"}});
  EXPECT_EQ(last("P'1"), 2);
  EXPECT_EQ(last("p'1"), 3);
  EXPECT_EQ(average("Größe 零件"), 4);
  EXPECT_EQ(last("' Or '1'='1"), 0);
}

TEST_F(PartCost, ReadsWithinTheCallersTransaction) {
  store({{"R1", "STK010POREV", "2024/03/05", 1, "P", "5", "2"}});
  Value affected;
  connection.call("BeginTrans");
  connection.call("Execute", "Update STKTRANDT Set UPRICE=8", ref(affected), -1);
  EXPECT_EQ(last("P"), 8);
  connection.call("RollbackTrans");
  EXPECT_EQ(last("P"), 2);
}

// Thousands of parts are asked for one after another: every statement must start from the part, however many
// documents there are of one type.
TEST_F(PartCost, EveryStatementLooksUpThePartFirst) {
  std::vector<std::string> statements;
  {
    AnsweringDatabase script([](const std::string&) { return Reply{}; });
    connection = script.connection();
    average("P");
    produced("P");
    statements = script.statements();
    connection = {};
  }
  connection = database.open();
  for (const auto& statement : statements) {
    Value affected;
    const Object plan = automation::to_object(
        connection.call("Execute", "EXPLAIN QUERY PLAN " + statement, ref(affected), -1));
    const Object fields = automation::to_object(plan.get("Fields"));
    const std::string step =
        automation::to_text(automation::to_object(fields.call("Item", "detail")).get("Value"));
    EXPECT_NE(step.find("STKTRANDT_BY_PART (PARTNO=?)"), std::string::npos) << statement << '\n' << step;
    plan.call("Close");
  }
  EXPECT_EQ(statements.size(), 4U);
}

}  // namespace
}  // namespace tallyra::standins::corvane::testing
